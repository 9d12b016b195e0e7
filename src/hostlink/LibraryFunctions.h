#pragma once
// How the functions of a shared library become members that can be called.

#include "hostlink/CallMark.h"
#include "hostlink/SharedLibrary.h"
#include "hostlink/tarn_abi.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <filesystem>
#include <string>
#include <vector>

namespace ocuva {

/// A function of a library, whichever it is.
struct FunctionAddress {
    void* address;
    CallMark* mark;
    const char* words; ///< for the mark; the library's LibraryFunctions keeps them
};

/// A function that is marked as running while it runs.
template <class Pointer> class MarkedFunction {
public:
    MarkedFunction(const FunctionAddress& function)
        : m_function(reinterpret_cast<Pointer>(function.address))
        , m_mark(function.mark)
        , m_words(function.words) {}

    template <class... In> auto operator()(In... in) const {
        const CallMark::Scope running(*m_mark, m_words);
        return m_function(in...);
    }

private:
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

/// Lets a library fill a text, and hands on no more than the caller has room for. The library gets a buffer
/// with room behind it, so that one that forgets the size it was told, or the end of its text, does no harm;
/// the result is the number of characters that there are, whatever the library says.
template <class Fill> TarnLong boundedText(char* buffer, TarnLong bufferSize, const Fill& fill) {
    constexpr std::size_t roomBehind = 4096;
    const auto size = static_cast<std::size_t>(std::max<TarnLong>(bufferSize, 0));
    std::vector<char> own(size + roomBehind, '\0');
    const TarnLong claimed = fill(own.data(), bufferSize);
    const std::size_t written = std::min(size, static_cast<std::size_t>(std::max<TarnLong>(claimed, 0)));
    const std::size_t length = strnlen(own.data(), written);
    std::memcpy(buffer, own.data(), length);
    if (length < size) {
        buffer[length] = '\0';
    }
    return static_cast<TarnLong>(length);
}

} // namespace ocuva
