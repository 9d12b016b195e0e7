#include "hosts/common/services/Standards.h"
#include "hosts/simulated/SimulatedHost.h"
#include "tests/conformance/HostUnderTest.h"
#include "tests/support/TempFolder.h"

#include <fstream>

namespace {

class SimulatedHostUnderTest final : public HostUnderTest {
public:
    SimulatedHostUnderTest() {
        hosts::simulated::SimulatedHostOptions options;
        options.dataFolder = m_folder.path();
        options.clock = m_clock;
        m_host = std::make_unique<hosts::simulated::SimulatedHost>(std::move(options));
    }
    ocuva::Host& host() override { return *m_host; }
    void letTimePass(double ms) override { m_clock->advance(ms); }
    Standard knownStandard() override {
        Standard standard{(m_folder.path() / "standards" / "Known.std").string(), -123, 456, -7};
        m_folder.write("standards/Known.std",
                       hosts::standardText("Known", {standard.x, standard.y, standard.z}));
        return standard;
    }

private:
    TempFolder m_folder;
    std::shared_ptr<hosts::VirtualClock> m_clock = std::make_shared<hosts::VirtualClock>();
    std::unique_ptr<hosts::simulated::SimulatedHost> m_host;
};

} // namespace

std::vector<HostFactory> hostsUnderTest() {
    return {{"Simulated", [] { return std::make_unique<SimulatedHostUnderTest>(); }}, libraryHostUnderTest()};
}
