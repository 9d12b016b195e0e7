#pragma once
// The simulated host: everything that a real host's libraries do, inside this process. README.md beside this
// file lists every setting, and what is simulated and what is not.

#include "hostlink/DisplayWindow.h"
#include "hostlink/Host.h"
#include "hosts/common/board/VideoBoard.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/simulated/Truth.h"
#include "hosts/simulated/mechanics/StageMechanics.h"
#include "hosts/simulated/world/SurfaceShape.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace hosts::simulated {

/// What is around the host; what is left out is its own.
struct SimulatedHostOptions {
    /// Where stores, standards, log and "simulator.ini" are; made and seeded where needed. Empty: the user's
    /// own.
    std::filesystem::path dataFolder;
    /// The windows that live video goes to; null for none. Outlives the host.
    ocuva::DisplayWindows* windows = nullptr;
    /// Shows a message box (text, title, TARN_BOX_...) and gives the operator's TARN_ANSWER_.... Without one,
    /// boxes are only logged and get the answer that changes least.
    std::function<TarnLong(std::string text, std::string title, TarnLong style)> showMessage;
    /// Null: a real clock, run at TimeFactor of "simulator.ini".
    std::shared_ptr<Clock> clock;
    /// Makes notifiers in place of the message bus, which needs a QCoreApplication.
    std::function<std::unique_ptr<ocuva::Notifier>()> createNotifier;
    /// Sends by name in place of the message bus.
    std::function<bool(const std::string& name)> sendByName;
};

/// Used on one thread. Frames reach the windows from a thread of the board, or from whoever advances a
/// virtual clock.
class SimulatedHost final : public ocuva::Host {
public:
    /// Throws std::runtime_error with a sentence for the operator when the data folder cannot be had.
    explicit SimulatedHost(SimulatedHostOptions options);
    ~SimulatedHost() override;

    /// ocuva::Host.
    ///@{
    TARN_LIBRARIES(TARN_ACCESS)
    std::unique_ptr<ocuva::Notifier> createNotifier() override;
    ///@}

    /// What no real host tells: the truth, for tests and for the bench.
    ///@{
    const Truth& truth() const;
    const SurfaceShape& trueSurface() const;
    FieldSize trueField();
    StageMechanics& stage();
    VideoBoard& board();
    Clock& clock();
    const std::filesystem::path& dataFolder() const;
    ///@}

private:
    struct Libraries;
    std::unique_ptr<Libraries> m_libraries;
};

} // namespace hosts::simulated
