#pragma once
// The requirements on any host. Add a host by adding a row to hostsUnderTest().

#include "hostlink/Host.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

/// One host, made for one test: settings that the test may spoil, a stage that it may move.
class HostUnderTest {
public:
    virtual ~HostUnderTest() = default;
    virtual ocuva::Host& host() = 0;
    /// Lets the host's time pass.
    virtual void letTimePass(double ms) = 0;

    struct Standard {
        std::string name; ///< full path
        TarnLong x = 0;
        TarnLong y = 0;
        TarnLong z = 0;
    };
    /// A standard with a position that the host's database holds.
    virtual Standard knownStandard() = 0;
};

/// One row of the table of hosts.
struct HostFactory {
    std::string name; ///< letters and digits
    std::unique_ptr<HostUnderTest> (*make)();
};

inline void PrintTo(const HostFactory& factory, std::ostream* out) { *out << factory.name; }

/// The table, in HostUnderTest.cpp.
std::vector<HostFactory> hostsUnderTest();

/// What makes each of them.
///@{
std::unique_ptr<HostUnderTest> simulatedHostUnderTest();
std::unique_ptr<HostUnderTest> hostThatKeepsItsPlace();
std::unique_ptr<HostUnderTest> libraryHostUnderTest();
///@}

/// The fixture of every suite: a new host for each test.
class HostConformance : public testing::TestWithParam<HostFactory> {
public:
    ~HostConformance() override;

protected:
    HostConformance();

    ocuva::Host& host() { return m_underTest->host(); }
    HostUnderTest& underTest() { return *m_underTest; }

private:
    std::unique_ptr<HostUnderTest> m_underTest;
};

inline std::string hostName(const testing::TestParamInfo<HostFactory>& info) { return info.param.name; }

/// Runs one call and expects it back without a wait for a device: 20 ms on a machine that does nothing else.
void expectAtOnce(const char* call, const std::function<void()>& run);

/// A text buffer between canaries: a host that writes past the size it was given is caught.
class GuardedBuffer {
public:
    /// size: what the host is told.
    explicit GuardedBuffer(TarnLong size);
    char* data() { return m_bytes.data() + canaryBytes; }
    TarnLong size() const { return m_size; }
    /// True while nothing outside the buffer has been written.
    bool intact() const;
    std::string text(TarnLong length) { return {data(), static_cast<std::size_t>(length)}; }

private:
    static constexpr std::size_t canaryBytes = 64;
    static constexpr char canary = '\x5A';
    TarnLong m_size;
    std::vector<char> m_bytes;
};

/// Calls a function that fills a text buffer with every size from 0 to more than the text needs, and
/// checks the contract for each size: nothing beyond the buffer, truncation instead of refusal, and a NUL
/// if there is room.
void expectBoundedText(const std::string& text, const std::function<TarnLong(char*, TarnLong)>& fill);
