#pragma once
// The surroundings of a host.

#include "hostlink/DisplayWindow.h"
#include "hostlink/Host.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace hosts {

/// The host supplies its own part for each missing one.
struct HostOptions {
    /// Where stores, standards and log are; made and seeded where needed. Empty: the user's own.
    std::filesystem::path dataFolder;
    /// The windows that live video goes to; null for none. Outlives the host.
    ocuva::DisplayWindows* windows = nullptr;
    /// Shows a message box (text, title, TARN_BOX_...) and gives the operator's TARN_ANSWER_.... Without one,
    /// boxes are only logged and get the answer that changes least.
    std::function<TarnLong(std::string text, std::string title, TarnLong style)> showMessage;
    /// Makes notifiers in place of the message bus, which needs a QCoreApplication.
    std::function<std::unique_ptr<ocuva::Notifier>()> createNotifier;
    /// Sends by name in place of the message bus.
    std::function<bool(const std::string& name)> sendByName;
};

} // namespace hosts
