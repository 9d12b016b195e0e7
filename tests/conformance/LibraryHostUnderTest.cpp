// The simulated host once more, as shared libraries that are loaded like those of a real host.

#include "hostlink/LibraryHost.h"
#include "hostlink/SharedLibrary.h"
#include "hosts/common/bus/MessageBus.h"
#include "hosts/common/services/Standards.h"
#include "tests/conformance/HostUnderTest.h"
#include "tests/support/TempFolder.h"

namespace {

class LibraryHostUnderTest final : public HostUnderTest {
public:
    LibraryHostUnderTest() {
        using Restart = void (*)(const char*);
        reinterpret_cast<Restart>(m_core.find("SimulatedHostRestart"))(m_folder.path().string().c_str());
    }
    ocuva::Host& host() override { return m_host; }
    void letTimePass(double ms) override {
        using Advance = void (*)(double);
        reinterpret_cast<Advance>(m_core.find("SimulatedHostAdvance"))(ms);
    }
    Standard knownStandard() override {
        Standard standard{(m_folder.path() / "standards" / "Known.std").string(), -123, 456, -7};
        m_folder.write("standards/Known.std",
                       hosts::standardText("Known", {standard.x, standard.y, standard.z}));
        return standard;
    }

private:
    TempFolder m_folder;
    ocuva::SharedLibrary m_core{std::filesystem::path(OCUVA_HOST_FOLDER) /
                                (std::string("ocuva_simhost") + ocuva::SharedLibrary::suffix)};
    hosts::MessageBus m_bus{m_folder.path(), [](const std::string& /*line*/) {}};
    ocuva::LibraryHost m_host{OCUVA_HOST_FOLDER, [this] { return m_bus.createNotifier(); }};
};

} // namespace

std::unique_ptr<HostUnderTest> libraryHostUnderTest() { return std::make_unique<LibraryHostUnderTest>(); }
