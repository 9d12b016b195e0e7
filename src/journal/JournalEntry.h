#pragma once
// What the journal tells of: one thing that was done to the instrument.

#include "base/Types.h"

#include <functional>
#include <optional>
#include <string>

namespace ocuva {

/// In whole stage units.
struct JournalPosition {
    Long x = 0; ///< stage units
    Long y = 0; ///< stage units
    Long z = 0; ///< stage units
};

/// One line of the journal but for its time.
struct JournalEntry {
    std::string what; ///< "move", "focus", "picture", "request"
    std::optional<JournalPosition>
        from; ///< as last shown before; none where it was never read, or is of no use
    std::optional<JournalPosition> to; ///< as read afterwards
    std::string result;                ///< how it ended, or what was asked for
};

/// Where entries go; one that is empty keeps none.
using JournalSink = std::function<void(const JournalEntry&)>;

/// Hands an entry on where there is somewhere to.
inline void note(const JournalSink& journal, const JournalEntry& entry) {
    if (journal) {
        journal(entry);
    }
}

} // namespace ocuva
