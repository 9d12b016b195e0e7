#include "tests/conformance/HostUnderTest.h"

#include <algorithm>
#include <chrono>

std::vector<HostFactory> hostsUnderTest() {
    return {
        {"Simulated", simulatedHostUnderTest},
        {"KeepingItsPlace", hostThatKeepsItsPlace},
        {"SharedLibraries", libraryHostUnderTest},
    };
}

HostConformance::HostConformance()
    : m_underTest(GetParam().make()) {}

HostConformance::~HostConformance() = default;

void expectAtOnce(const char* call, const std::function<void()>& run) {
    constexpr std::chrono::milliseconds crowdedMachine{500};
    const auto began = std::chrono::steady_clock::now();
    run();
    EXPECT_LT(std::chrono::steady_clock::now() - began, crowdedMachine) << call;
}

GuardedBuffer::GuardedBuffer(TarnLong size)
    : m_size(size)
    , m_bytes(static_cast<std::size_t>(std::max(size, 0)) + 2 * canaryBytes, canary) {}

bool GuardedBuffer::intact() const {
    const auto isCanary = [](char byte) { return byte == canary; };
    return std::all_of(m_bytes.begin(), m_bytes.begin() + canaryBytes, isCanary) &&
           std::all_of(m_bytes.end() - canaryBytes, m_bytes.end(), isCanary);
}

void expectBoundedText(const std::string& text, const std::function<TarnLong(char*, TarnLong)>& fill) {
    const auto length = static_cast<TarnLong>(text.size());
    for (TarnLong size = 0; size <= length + 2; ++size) {
        GuardedBuffer buffer(size);
        const TarnLong written = fill(buffer.data(), size);
        ASSERT_EQ(written, std::min(size, length)) << "size " << size;
        ASSERT_TRUE(buffer.intact()) << "size " << size;
        ASSERT_EQ(buffer.text(written), text.substr(0, static_cast<std::size_t>(written))) << "size " << size;
        if (size > length) {
            ASSERT_EQ(buffer.data()[length], '\0') << "size " << size;
        }
    }
}
