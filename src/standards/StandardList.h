#pragma once
// The operator's ordered list of standards, kept in the program store, and the positions behind their names.

#include "base/StagePosition.h"
#include "base/Types.h"
#include "hostlink/Host.h"
#include "standards/UnfinishedList.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ocuva {

/// Section "StandardList": "StandardListSize", and "Standard1", "Standard2" ... with one name each,
/// usually the full path of a ".std" file of the host. Readers skip empty values; keys beyond the size are
/// never read. Nothing is cached, and every change is written at once.
class StandardList {
public:
    /// A name is read through a buffer of that many characters; a longer stored one comes back cut.
    static constexpr Long nameLength = 128;

    /// Whether a name comes back as it was stored.
    static bool fits(const std::string& name) { return name.size() <= std::size_t{nameLength}; }

    /// Both outlive it. The file exists only while a list is being stored. With an empty path, a list
    /// whose storing is interrupted is lost.
    StandardList(TnReg& reg, TnLibProxy& libProxy, std::filesystem::path unfinished = {})
        : m_reg(reg)
        , m_libProxy(libProxy)
        , m_unfinished(std::move(unfinished)) {}

    /// Iterates: begin with index 0, call until false. Gives the next name that is not a hole and its index;
    /// untouched arguments and false behind the last one. Indices are 16-bit, so a list ends at 32767.
    bool GetNextStandard(std::string& name, Integer& index) const;

    /// Appends a name, even if it is in the list already. With clear the list is replaced by it; with
    /// clear and an empty name the list becomes empty. An empty name without clear changes nothing. A name
    /// that could not be written is not counted. False if something could not be written.
    bool AppendStandard(const std::string& name, bool clear);

    /// Stores the names as the whole list: clears it with the first and appends the others. False when not
    /// all of it could be stored; the list is then kept for finishStoring.
    bool store(const std::vector<std::string>& names);

    /// Called at the start: completes the storing of a list that was interrupted in an earlier run, unless
    /// another program is storing one. Returns the number of its standards, or nothing if there was none
    /// to store.
    std::optional<std::size_t> finishStoring();

    /// The host's standards directory.
    std::string directory() const;

    /// Position of a standard in the host's database; nothing when it cannot be opened or read, or has none.
    std::optional<StagePosition> position(const std::string& name) const;

private:
    Long size() const;
    bool write(const std::string& key, const std::string& value);
    bool storeEach(const std::vector<std::string>& names);
    std::vector<std::string> names() const;

    TnReg& m_reg;
    TnLibProxy& m_libProxy;
    UnfinishedList m_unfinished;
};

/// An open object of the host's database for standards; frees its handle.
class StandardObject {
public:
    /// Opens the object; isOpen reports success. The library outlives it.
    explicit StandardObject(TnLibProxy& libProxy);
    ~StandardObject();
    StandardObject(const StandardObject&) = delete;
    StandardObject& operator=(const StandardObject&) = delete;

    /// Otherwise nothing can be read.
    bool isOpen() const { return m_handle != 0; }
    /// Loads the standard of that name in place of the one before; false when the host has none.
    bool read(const std::string& name);
    /// Of the standard that was read; nothing when it has none.
    std::optional<StagePosition> position() const;

private:
    TnLibProxy& m_libProxy;
    Long m_handle;
};

} // namespace ocuva
