#pragma once
// How the functions of a shared library become members that can be called.

#include "hostlink/SharedLibrary.h"
#include "hostlink/tarn_abi.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

namespace ocuva {

/// An address that becomes a pointer to whatever function it is assigned to.
struct FunctionAddress {
    void* address;
    template <class Function> operator Function*() const { return reinterpret_cast<Function*>(address); }
};

/// One library and the list of what it lacks, each lack as one sentence.
class LibraryFunctions {
public:
    LibraryFunctions(const std::filesystem::path& folder, const std::string& name,
                     std::vector<std::string>& lacks)
        : m_library(folder / (name + SharedLibrary::suffix))
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
        return {address};
    }

private:
    SharedLibrary m_library;
    std::vector<std::string>& m_lacks;
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
