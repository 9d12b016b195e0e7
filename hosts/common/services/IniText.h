#pragma once
// The text of an INI file, read and edited with the semantics customary on Windows. Pure: no file is touched.
//
// What counts as what
//  - A line ends with LF or CR LF; the last line may have no end. A UTF-8 byte-order mark at the very start
//  is
//    passed over. Bytes above 127 are letters like any other. Blanks are space, tab, VT, FF and CR.
//  - "[name]", blanks before allowed: a section from here on. The name ends at the first ']', blanks round it
//    do not count, and what follows the ']' is passed over.
//  - "key=value" inside a section: the key ends at the first '=' and is not empty; blanks round key and value
//    do not count. A value that begins and ends with the same quote, " or ', is read without the two.
//  - First non-blank is ';' or '#': a comment. There are no comments behind a value.
//  - Everything else (no '=', no key, no ']', before the first section) is kept and has no meaning.
//  - Sections and keys are found without regard to the case of A to Z. The first section of a name is the
//  only
//    one that is looked into, and in it the first key of a name.

#include "base/Types.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hosts {

/// The text of one file; unchanged parts keep every byte.
class IniText {
public:
    /// A larger text is refused.
    static constexpr std::size_t maxBytes = 16u * 1024u * 1024u;

    /// An empty text: every read finds nothing.
    IniText() = default;

    /// Parses a text. Returns nothing, with a clause in `reason` if it is given, if this cannot be an INI
    /// text: larger than maxBytes; a NUL or another control character than tab, LF, VT, FF, CR and the
    /// end-of-file mark 0x1A; or no section although there are lines that are neither blank nor comments.
    static std::optional<IniText> parse(std::string text, std::string* reason = nullptr);

    /// As it was read, with the changes since.
    const std::string& text() const { return m_text; }

    /// The value as read (trimmed, unquoted); nothing when section or key is absent, "" when it is empty.
    /// Quick in a long text too.
    std::optional<std::string> value(std::string_view section, std::string_view key) const;

    /// The whole number at the beginning of the value; the default if there is none or it needs more than
    /// 32 bits.
    ocuva::Long intValue(std::string_view section, std::string_view key, ocuva::Long defaultValue) const;

    /// Every entry of the section as "key=value", as read, in the order of the text; a key that occurs twice
    /// is there twice.
    std::vector<std::string> entries(std::string_view section) const;

    /// Changes the value, or adds key and section where they are absent: a key behind the last one of its
    /// section, a section at the end. Every other byte stays. `value` then reads back exactly this text: one
    /// that would lose blanks or quotes is written in double quotes.
    /// False, and nothing changed, when that cannot be: an empty name; a control character other than tab in
    /// any of the three; ']' in a section; '=' in a key or one of ; # [ at its start; a text above maxBytes.
    bool setValue(std::string_view section, std::string_view key, std::string_view value);

private:
    explicit IniText(std::string text)
        : m_text(std::move(text)) {
        findEntries();
    }

    /// A part of the text, which is short enough for 32 bits.
    struct Part {
        std::uint32_t begin = 0;
        std::uint32_t length = 0;
    };
    struct Entry {
        std::uint32_t hash = 0; ///< of section and key
        Part section;
        Part key;
        Part value; ///< all behind '=' up to the line's end, untrimmed
    };
    Part partOf(std::string_view part) const;
    std::string_view text(Part part) const;
    void findEntries();

    std::string m_text;
    std::vector<Entry> m_entries; ///< the valid entries by hash, equal ones in the order of the text
};

} // namespace hosts
