#include "hosts/common/services/Standards.h"
#include "hosts/simulated/SimulatedHost.h"
#include "tests/conformance/HostUnderTest.h"
#include "tests/support/TempFolder.h"

#include <fstream>

namespace {

class SimulatedHostUnderTest : public HostUnderTest {
public:
    explicit SimulatedHostUnderTest(const std::string& simulatorIni = {}) {
        if (!simulatorIni.empty()) {
            m_folder.write("simulator.ini", simulatorIni);
        }
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

    hosts::simulated::SimulatedHost& simulated() { return *m_host; }

private:
    TempFolder m_folder;
    std::shared_ptr<hosts::VirtualClock> m_clock = std::make_shared<hosts::VirtualClock>();
    std::unique_ptr<hosts::simulated::SimulatedHost> m_host;
};

// A device stands where the last test left it. This one stands close to its limits, and complains when it is left
// elsewhere.
class HostThatKeepsItsPlace final : public SimulatedHostUnderTest {
public:
    HostThatKeepsItsPlace()
        : SimulatedHostUnderTest("[Stage]\nStartX=24990\nStartY=-24990\nStartZ=995\n") {}
    ~HostThatKeepsItsPlace() override {
        const ocuva::ExactStagePosition left = simulated().stage().exactPosition();
        EXPECT_EQ(left.x, 24990.0);
        EXPECT_EQ(left.y, -24990.0);
        EXPECT_EQ(left.z, 995.0);
    }
};

} // namespace

std::unique_ptr<HostUnderTest> simulatedHostUnderTest() { return std::make_unique<SimulatedHostUnderTest>(); }

std::unique_ptr<HostUnderTest> hostThatKeepsItsPlace() { return std::make_unique<HostThatKeepsItsPlace>(); }
