#pragma once
// How the functions of a shared library become members that can be called.

#include "hostlink/CallMark.h"
#include "hostlink/HostArguments.h"
#include "hostlink/SharedLibrary.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <filesystem>
#include <string>
#include <type_traits>
#include <vector>

namespace ocuva {

/// A function of a library, whichever it is.
struct FunctionAddress {
    void* address;
    CallMark* mark;
    const char* words; ///< for the mark; the library's LibraryFunctions keeps them
};

/// What a library is given in place of an argument of the caller: the argument itself, unless the library
/// could do harm with it.
template <class Argument> struct Lent {
    template <class In, class Out>
    explicit Lent(const Passed<Argument, In, Out>& passed)
        : argument(passed.argument) {}
    /// The result that the caller gets, once the library has returned.
    TarnLong taken(TarnLong result) const { return result; }

    Argument argument;
};

/// A buffer with room behind it, for a library that forgets the size it was given, or the end of its text. No
/// more is handed on than the caller has room for, and the result is the number of characters that there are,
/// whatever the library says.
template <> struct Lent<char*> {
    template <class In, class Out>
    explicit Lent(const Passed<char*, In, Out>& passed)
        : caller(passed.argument)
        , size(static_cast<std::size_t>(std::max<TarnLong>(passed.extent, 0)))
        , own(size + roomBehind, '\0')
        , argument(own.data()) {}
    TarnLong taken(TarnLong claimed) const {
        const std::size_t written = std::min(size, static_cast<std::size_t>(std::max<TarnLong>(claimed, 0)));
        const std::size_t length = strnlen(own.data(), written);
        std::memcpy(caller, own.data(), length);
        if (length < size) {
            caller[length] = '\0';
        }
        return static_cast<TarnLong>(length);
    }

    static constexpr std::size_t roomBehind = 4096;
    char* caller;
    std::size_t size;
    std::vector<char> own;
    char* argument;
};

/// A description with room behind it, for a library whose record is longer than ours.
template <> struct Lent<TarnBufferDesc*> {
    template <class In, class Out>
    explicit Lent(const Passed<TarnBufferDesc*, In, Out>& passed)
        : caller(passed.argument)
        , own{*passed.argument, {}} {}
    TarnLong taken(TarnLong result) const {
        *caller = own.record;
        return result;
    }

    TarnBufferDesc* caller;
    struct {
        TarnBufferDesc record;
        char roomBehind[256];
    } own;
    TarnBufferDesc* argument = &own.record;
};

/// A function that is marked as running while it runs.
template <class Pointer> class MarkedFunction {
public:
    MarkedFunction(const FunctionAddress& function)
        : m_function(reinterpret_cast<Pointer>(function.address))
        , m_mark(function.mark)
        , m_words(function.words) {}

    template <class... Argument, class... In, class... Out>
    auto operator()(const Passed<Argument, In, Out>&... passed) const {
        return call(Lent<Argument>(passed)...);
    }

private:
    template <class... Argument> auto call(const Lent<Argument>&... lent) const {
        const auto marked = [&] {
            const CallMark::Scope running(*m_mark, m_words);
            return m_function(lent.argument...);
        };
        if constexpr (std::is_void_v<decltype(marked())>) {
            marked();
        } else {
            TarnLong result = marked();
            ((result = lent.taken(result)), ...);
            return result;
        }
    }

    Pointer m_function;
    CallMark* m_mark;
    const char* m_words;
};

/// One library and the list of what it lacks, each lack as one sentence.
class LibraryFunctions {
public:
    LibraryFunctions(const std::filesystem::path& folder, const std::string& name,
                     std::vector<std::string>& lacks, CallMark& mark)
        : m_mark(mark)
        , m_library(load(folder / (name + SharedLibrary::suffix), mark))
        , m_lacks(lacks) {
        if (!m_library.isLoaded()) {
            m_lacks.push_back("The host's library " + m_library.file().string() +
                              " cannot be loaded: " + m_library.error());
        }
    }

    FunctionAddress operator()(const char* name) const {
        void* address = m_library.find(name);
        if (address == nullptr && m_library.isLoaded()) {
            m_lacks.push_back("The host's library " + m_library.file().string() + " has no function " + name);
        }
        m_words.push_back(std::string(name) + " of " + m_library.file().string());
        return {address, &m_mark, m_words.back().c_str()};
    }

private:
    static SharedLibrary load(const std::filesystem::path& file, CallMark& mark) {
        const std::string words = "the loading of " + file.string();
        const CallMark::Scope running(mark, words.c_str());
        return SharedLibrary(file);
    }

    CallMark& m_mark;
    SharedLibrary m_library;
    std::vector<std::string>& m_lacks;
    mutable std::deque<std::string> m_words; // no word moves when one is added
};

} // namespace ocuva
