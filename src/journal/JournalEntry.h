#pragma once
// One action on the instrument, as the journal records it.

#include "base/Types.h"

#include <functional>
#include <optional>
#include <string>

namespace ocuva {

/// A stage position.
struct JournalPosition {
    Long x = 0; ///< stage units
    Long y = 0; ///< stage units
    Long z = 0; ///< stage units
};

/// One line of the journal, without its time.
struct JournalEntry {
    std::string what; ///< "move", "focus", "picture", "request"
    std::optional<JournalPosition>
        from;                          ///< as shown last before; none if it was never read or does not apply
    std::optional<JournalPosition> to; ///< as read afterwards
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
