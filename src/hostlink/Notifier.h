#pragma once
// The host's notifier: named messages between the host and its programs.

#include "base/Types.h"

#include <functional>
#include <memory>
#include <string>

namespace ocuva {

/// One message delivered by OnNotify.
struct Notification {
    Long msgHandler = 0;         ///< number of the delivery; the program does not use it
    std::string strComponent;    ///< whom it is for; what a filter "DST_APP=X" compares
    std::string strSubComponent; ///< a part of the component; may be empty
    std::string strId;           ///< what the message means, compared exactly ("OCUVA_WAKEUP")
};

/// Events arrive one at a time on the thread that created the notifier, from its event loop and never from
/// inside Send or Subscribe. A notifier does not receive its own messages.
class Notifier {
public:
    /// Receives one message, on the thread that created the notifier.
    using OnNotify = std::function<void(const Notification&)>;

    virtual ~Notifier() = default;

    /// Sets the receiver of events. To be called before Subscribe.
    virtual void setOnNotify(OnNotify receiver) = 0;

    /// Receives from now on the messages that match the filter: "DST_APP=X" matches the component X, an
    /// empty filter everything. A second call replaces the filter.
    virtual void Subscribe(const std::string& filter) = 0;

    /// Sends to every subscriber of the same user whose filter matches, in this and in other processes.
    virtual void Send(const std::string& component, const std::string& subComponent,
                      const std::string& id) = 0;
};

} // namespace ocuva
