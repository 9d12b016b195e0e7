#include "hosts/common/services/IniText.h"

#include "hosts/common/services/Numerals.h"

#include <algorithm>
#include <unordered_set>

namespace hosts {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

enum class Kind { blank, comment, section, entry, unknown };

struct Line {
    Kind kind = Kind::blank;
    std::string_view name;  ///< of a section or key
    std::string_view value; ///< of an entry: all behind '=' up to the line's end, untrimmed
    std::size_t next = 0;   ///< where the following line begins
};

Line sectionLine(std::string_view content) {
    const std::size_t close = content.find(']');
    if (close == std::string_view::npos)
        return {Kind::unknown, {}, {}, 0};
    return {Kind::section, trimmed(content.substr(1, close - 1)), {}, 0};
}

Line entryLine(std::string_view content) {
    const std::size_t sign = content.find('=');
    if (sign == std::string_view::npos || sign == 0)
        return {Kind::unknown, {}, {}, 0};
    return {Kind::entry, trimmed(content.substr(0, sign)), content.substr(sign + 1), 0};
}

Line classified(std::string_view content) {
    content = trimmed(content);
    if (content.empty())
        return {Kind::blank, {}, {}, 0};
    if (content.front() == ';' || content.front() == '#')
        return {Kind::comment, {}, {}, 0};
    return content.front() == '[' ? sectionLine(content) : entryLine(content);
}

/// Goes through a text line by line.
class Lines {
public:
    explicit Lines(std::string_view text)
        : m_text(text)
        , m_next(text.substr(0, byteOrderMark.size()) == byteOrderMark ? byteOrderMark.size() : 0) {}

    std::optional<Line> next() {
        if (m_next >= m_text.size())
            return std::nullopt;
        const std::size_t begin = m_next;
        const std::size_t feed = m_text.find('\n', begin);
        const std::size_t end = feed == std::string_view::npos ? m_text.size() : feed;
        m_next = feed == std::string_view::npos ? m_text.size() : feed + 1;
        Line line = classified(m_text.substr(begin, end - begin));
        line.next = m_next;
        return line;
    }

    /// Moves behind the head of the first section of that name; false when there is none.
    bool enter(std::string_view section) {
        while (const auto line = next())
            if (line->kind == Kind::section && equalIgnoringCase(line->name, section)) {
                m_sectionBegin = line->next;
                return true;
            }
        return false;
    }

    /// The next entry of the section that was entered.
    std::optional<Line> nextEntry() {
        while (const auto line = next()) {
            if (line->kind == Kind::section)
                break;
            if (line->kind == Kind::entry)
                return line;
        }
        m_next = m_text.size();
        return std::nullopt;
    }

    std::size_t sectionBegin() const { return m_sectionBegin; }

private:
    std::string_view m_text;
    std::size_t m_next;
    std::size_t m_sectionBegin = 0;
};

/// Names that differ in nothing but the case of A to Z are one.
std::string folded(std::string_view name) {
    std::string result(name);
    for (char& c : result)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return result;
}

/// The same for names that differ in nothing but the case of A to Z (FNV-1a).
std::uint32_t hashOf(std::string_view section, std::string_view key) {
    std::uint32_t hash = 2166136261U;
    const auto add = [&hash](std::string_view name) {
        for (const char c : folded(name))
            hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    };
    add(section);
    add("\n");
    add(key);
    return hash;
}

bool inQuotes(std::string_view text) {
    return text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
}

std::string_view asRead(std::string_view rawValue) {
    rawValue = trimmed(rawValue);
    return inQuotes(rawValue) ? rawValue.substr(1, rawValue.size() - 2) : rawValue;
}

std::string asWritten(std::string_view value) {
    if (asRead(value) == value)
        return std::string(value);
    return '"' + std::string(value) + '"';
}

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20; }

/// Any of these means that the bytes are no text that people edit.
bool isForeign(char c) {
    return isControl(c) && std::string_view("\t\n\v\f\r\x1A").find(c) == std::string_view::npos;
}

bool isWritable(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return isControl(c) && c != '\t'; });
}

bool isSectionName(std::string_view name) {
    return !name.empty() && isWritable(name) && name.find(']') == std::string_view::npos;
}

bool isKeyName(std::string_view name) {
    return !name.empty() && isWritable(name) && name.find('=') == std::string_view::npos &&
           std::string_view(";#[").find(name.front()) == std::string_view::npos;
}

const char* whyNoIni(std::string_view text) {
    if (text.size() > IniText::maxBytes)
        return "it is larger than 16 MiB";
    if (std::any_of(text.begin(), text.end(), isForeign))
        return "it holds binary data";
    Lines lines(text);
    bool anything = false;
    while (const auto line = lines.next()) {
        if (line->kind == Kind::section)
            return nullptr;
        anything = anything || line->kind == Kind::entry || line->kind == Kind::unknown;
    }
    return anything ? "it has lines but no section" : nullptr;
}

/// The line end that the text uses: that of its first line.
std::string_view lineEndOf(std::string_view text) {
    const std::size_t feed = text.find('\n');
    return feed != std::string_view::npos && feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
}

/// Puts whole lines (each ended) at a line's beginning, which may be the end of a text without a final line
/// end.
std::string withLines(const std::string& text, std::size_t at, const std::string& lines) {
    std::string head = text.substr(0, at);
    if (!head.empty() && head != byteOrderMark && head.back() != '\n')
        head += lineEndOf(text);
    return head + lines + text.substr(at);
}

std::string withNewSection(const std::string& text, std::string_view section, const std::string& entry) {
    const std::string end(lineEndOf(text));
    const bool separated = text.empty() || text == byteOrderMark || text.ends_with("\n" + end);
    return withLines(text, text.size(),
                     (separated ? "" : end) + '[' + std::string(section) + ']' + end + entry);
}

} // namespace

std::optional<IniText> IniText::parse(std::string text, std::string* reason) {
    if (const char* problem = whyNoIni(text)) {
        if (reason)
            *reason = problem;
        return std::nullopt;
    }
    return IniText(std::move(text));
}

IniText::Part IniText::partOf(std::string_view part) const {
    return {part.empty() ? 0 : static_cast<std::uint32_t>(part.data() - m_text.data()),
            static_cast<std::uint32_t>(part.size())};
}

std::string_view IniText::text(Part part) const {
    return std::string_view(m_text).substr(part.begin, part.length);
}

// Only the first section of a name counts, and in it the first key of a name.
void IniText::findEntries() {
    m_entries.clear();
    std::unordered_set<std::string> sections;
    std::string_view section;
    bool counts = false;
    Lines lines(m_text);
    while (const auto line = lines.next()) {
        if (line->kind == Kind::section) {
            section = line->name;
            counts = sections.insert(folded(section)).second;
        } else if (line->kind == Kind::entry && counts) {
            m_entries.push_back(
                {hashOf(section, line->name), partOf(section), partOf(line->name), partOf(line->value)});
        }
    }
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [](const Entry& a, const Entry& b) { return a.hash < b.hash; });
}

std::optional<std::string> IniText::value(std::string_view section, std::string_view key) const {
    section = trimmed(section);
    key = trimmed(key);
    const std::uint32_t hash = hashOf(section, key);
    auto entry = std::lower_bound(m_entries.begin(), m_entries.end(), hash,
                                  [](const Entry& each, std::uint32_t wanted) { return each.hash < wanted; });
    for (; entry != m_entries.end() && entry->hash == hash; ++entry)
        if (equalIgnoringCase(text(entry->section), section) && equalIgnoringCase(text(entry->key), key))
            return std::string(asRead(text(entry->value)));
    return std::nullopt;
}

ocuva::Long IniText::intValue(std::string_view section, std::string_view key,
                              ocuva::Long defaultValue) const {
    const auto text = value(section, key);
    return text ? leadingWholeNumber(*text).value_or(defaultValue) : defaultValue;
}

std::vector<std::string> IniText::entries(std::string_view section) const {
    std::vector<std::string> result;
    Lines lines(m_text);
    if (lines.enter(trimmed(section)))
        while (const auto entry = lines.nextEntry())
            result.push_back(std::string(entry->name) + '=' + std::string(asRead(entry->value)));
    return result;
}

bool IniText::setValue(std::string_view section, std::string_view key, std::string_view value) {
    section = trimmed(section);
    key = trimmed(key);
    if (!isSectionName(section) || !isKeyName(key) || !isWritable(value))
        return false;

    const std::string written = asWritten(value);
    const std::string newEntry = std::string(key) + '=' + written + std::string(lineEndOf(m_text));
    std::string edited;
    Lines lines(m_text);
    if (lines.enter(section)) {
        std::size_t behindLastEntry = lines.sectionBegin();
        std::optional<Line> entry = lines.nextEntry();
        while (entry && !equalIgnoringCase(entry->name, key)) {
            behindLastEntry = entry->next;
            entry = lines.nextEntry();
        }
        if (entry) {
            // Blanks before the value are its writer's layout and stay; the old value ends with its last
            // visible character.
            const std::string_view raw = entry->value;
            const std::string_view old = trimmed(raw);
            const auto begin = static_cast<std::size_t>((old.empty() ? raw : old).data() - m_text.data());
            edited = m_text;
            edited.replace(begin, old.size(), written);
        } else {
            edited = withLines(m_text, behindLastEntry, newEntry);
        }
    } else {
        edited = withNewSection(m_text, section, newEntry);
    }
    if (edited.size() > maxBytes)
        return false;
    m_text = std::move(edited);
    findEntries();
    return true;
}

} // namespace hosts
