#pragma once
// One action on the instrument, as the journal records it.

#include "base/StagePosition.h"

#include <functional>
#include <optional>
#include <string>

namespace ocuva {

/// One line of the journal, without its time.
struct JournalEntry {
    std::string what;                  ///< "move", "focus", "picture", "request"
    std::optional<StagePosition> from; ///< as shown last before; none if it was never read or does not apply
    std::optional<StagePosition> to;   ///< as read afterwards
    std::string result;                ///< the outcome, or the request
};

/// Receives entries; an empty sink discards them.
using JournalSink = std::function<void(const JournalEntry&)>;

/// Passes an entry to the sink, if there is one.
inline void note(const JournalSink& journal, const JournalEntry& entry) {
    if (journal) {
        journal(entry);
    }
}

} // namespace ocuva
