#pragma once
// The outcome of reading the listed standards from the host's database.

#include <string>

namespace ocuva {

/// Rows that show nothing because the database gave nothing must not be written back as the list.
struct StandardReading {
    bool databaseOpened = true;    ///< the host gave a handle
    int listed = 0;                ///< names on the list, holes not counted
    int unreadable = 0;            ///< number of names that the database could not read
    std::string last;              ///< the last name on the list
    bool lastIsUnreadable = false; ///< the database could not read the last name

    /// Counts one more name.
    void add(const std::string& name, bool isReadable) {
        ++listed;
        unreadable += isReadable ? 0 : 1;
        last = name;
        lastIsUnreadable = !isReadable;
    }

    /// Whether the list can be written as it was read: the database is there, and had at least one of the
    /// names, if there are any.
    bool mayBeStored() const { return databaseOpened && (listed == 0 || unreadable < listed); }

    /// The same right after one name was added to a list that could be stored: a new name that is alone on
    /// the list and cannot be read is no sign of a database in trouble.
    bool mayBeStoredAfterInsert() const { return mayBeStored() || (databaseOpened && listed == 1); }
};

} // namespace ocuva
