#include "journal/Journal.h"

#include "journal/JournalLine.h"

#include <utility>

namespace ocuva {

Journal::Journal(std::filesystem::path file, std::function<std::string()> now, LineFile::Complaint complain,
                 const FileLimit& limit)
    : m_file(std::move(file), limit, std::move(complain), std::string(journalHeader))
    , m_now(std::move(now)) {}

void Journal::write(const JournalEntry& entry) { m_file.writeLine(journalLine(m_now(), entry)); }

} // namespace ocuva
