#include "controls/UserRegistryText.h"

#include <QPoint>
#include <QRect>
#include <QStringList>

#include <array>
#include <optional>

namespace ocuva {

namespace {

struct Key {
    std::string section;
    std::string name;
};

/// A key without a section belongs to "General", as in QSettings.
Key splitKey(const QString& key) {
    const qsizetype slash = key.indexOf(u'/');
    return {slash < 0 ? "General" : key.left(slash).toStdString(), key.mid(slash + 1).toStdString()};
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// A line with its section and, if it is an entry, its name and value.
struct Line {
    std::string_view whole; ///< with its line feed
    std::string_view section;
    bool isSection = false;
    std::string_view name;
    std::string_view value;
};

class Lines {
public:
    explicit Lines(std::string_view text)
        : m_rest(text) {}

    std::optional<Line> next() {
        if (m_rest.empty()) {
            return std::nullopt;
        }
        const std::size_t end = m_rest.find('\n');
        Line line;
        line.whole = m_rest.substr(0, end == std::string_view::npos ? end : end + 1);
        m_rest.remove_prefix(line.whole.size());
        const std::string_view text = trimmed(line.whole.substr(0, line.whole.find('\n')));
        if (text.size() > 1 && text.front() == '[' && text.back() == ']') {
            m_section = text.substr(1, text.size() - 2);
            line.isSection = true;
        } else if (const std::size_t equals = text.find('=');
                   equals != std::string_view::npos && text.front() != ';') {
            line.name = trimmed(text.substr(0, equals));
            line.value = trimmed(text.substr(equals + 1));
        }
        line.section = m_section;
        return line;
    }

private:
    std::string_view m_rest;
    std::string_view m_section = "General";
};

/// Takes the items of a value apart, which commas divide outside quotation marks.
class Items {
public:
    explicit Items(std::string_view value)
        : m_rest(value) {}

    QStringList all() {
        QStringList items;
        for (bool more = true; more;) {
            items += one(more);
        }
        return items;
    }

private:
    QString one(bool& more) {
        std::string bytes;
        bool quoted = false;
        more = false;
        m_rest = trimmed(m_rest);
        while (!m_rest.empty()) {
            const char c = take();
            if (c == '"') {
                quoted = !quoted;
            } else if (c == '\\' && !m_rest.empty()) {
                escaped(bytes);
            } else if (c == ',' && !quoted) {
                more = true;
                break;
            } else {
                bytes += c;
            }
        }
        return QString::fromStdString(std::string(trimmed(bytes)));
    }

    char take() {
        const char c = m_rest.front();
        m_rest.remove_prefix(1);
        return c;
    }

    void escaped(std::string& bytes) {
        constexpr std::string_view letters = "abfnrtv0";
        constexpr std::array<char, 8> meant{'\a', '\b', '\f', '\n', '\r', '\t', '\v', '\0'};
        const char c = take();
        if (const std::size_t at = letters.find(c); at != std::string_view::npos) {
            bytes += meant.at(at);
        } else if (c == 'x') {
            const std::size_t end =
                std::min(m_rest.find_first_not_of("0123456789abcdefABCDEF"), std::size_t{4});
            const std::size_t digits = std::min(end, m_rest.size());
            const QChar letter(
                QString::fromStdString(std::string(m_rest.substr(0, digits))).toUShort(nullptr, 16));
            bytes += QString(letter).toStdString();
            m_rest.remove_prefix(digits);
        } else {
            bytes += c;
        }
    }

    std::string_view m_rest;
};

std::optional<QList<int>> numbersOf(const QString& text, const QString& type) {
    if (!text.startsWith(type + u'(') || !text.endsWith(u')')) {
        return std::nullopt;
    }
    QList<int> numbers;
    for (const QString& word : text.mid(type.size() + 1).chopped(1).split(u' ', Qt::SkipEmptyParts)) {
        bool good = false;
        numbers += word.toInt(&good);
        if (!good) {
            return std::nullopt;
        }
    }
    return numbers;
}

QVariant variantOf(const QStringList& items) {
    if (items.size() != 1) {
        return items;
    }
    const QString& text = items.front();
    if (const auto numbers = numbersOf(text, QStringLiteral("@Rect")); numbers && numbers->size() == 4) {
        return QRect(numbers->at(0), numbers->at(1), numbers->at(2), numbers->at(3));
    }
    if (const auto numbers = numbersOf(text, QStringLiteral("@Point")); numbers && numbers->size() == 2) {
        return QPoint(numbers->at(0), numbers->at(1));
    }
    return text.startsWith(QStringLiteral("@@")) ? text.mid(1) : text;
}

QString plainText(const QVariant& value) {
    if (value.typeId() == QMetaType::QRect) {
        const QRect rect = value.toRect();
        return QStringLiteral("@Rect(%1 %2 %3 %4)")
            .arg(rect.x())
            .arg(rect.y())
            .arg(rect.width())
            .arg(rect.height());
    }
    if (value.typeId() == QMetaType::QPoint) {
        return QStringLiteral("@Point(%1 %2)").arg(value.toPoint().x()).arg(value.toPoint().y());
    }
    const QString text = value.toString();
    return text.startsWith(u'@') ? u'@' + text : text;
}

std::string stored(const QVariant& value) {
    std::string text;
    bool quotes = false;
    for (const char c : plainText(value).toStdString()) {
        if (c == '\n' || c == '\r' || c == '\t') {
            text += c == '\n' ? "\\n" : c == '\r' ? "\\r" : "\\t";
        } else {
            text += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
            quotes = quotes || c == ',' || c == ';' || c == '=' || c == '"';
        }
    }
    quotes = quotes || trimmed(text) != text;
    return quotes ? '"' + text + '"' : text;
}

} // namespace

QVariant registryValue(std::string_view text, const QString& key) {
    const Key wanted = splitKey(key);
    Lines lines(text);
    while (const auto line = lines.next()) {
        if (line->section == wanted.section && line->name == wanted.name && !line->name.empty()) {
            return variantOf(Items(line->value).all());
        }
    }
    return {};
}

std::string withRegistryValue(std::string_view text, const QString& key, const QVariant& value) {
    const Key wanted = splitKey(key);
    const std::string entry = value.isValid() ? wanted.name + '=' + stored(value) + '\n' : std::string();
    std::string result;
    std::optional<std::size_t> endOfSection; // in the result: behind the last entry of the wanted section
    bool done = false;
    Lines lines(text);
    while (const auto line = lines.next()) {
        const bool isWanted =
            line->section == wanted.section && line->name == wanted.name && !line->isSection;
        if (isWanted && !line->name.empty()) {
            result += done ? std::string() : entry;
            done = true;
        } else {
            result += line->whole;
            result += line->whole.ends_with('\n') ? "" : "\n";
        }
        if (line->section == wanted.section && (line->isSection || !line->name.empty())) {
            endOfSection = result.size();
        }
    }
    if (done || entry.empty()) {
        return result;
    }
    if (endOfSection) {
        return result.insert(*endOfSection, entry);
    }
    return result + (result.empty() ? "[" : "\n[") + wanted.section + "]\n" + entry;
}

} // namespace ocuva
