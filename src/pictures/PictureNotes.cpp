#include "pictures/PictureNotes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace ocuva {

namespace {

// The oldest version that knows the unit; readers of the form look for one.
constexpr const char* formVersion = "1.11a";
constexpr const char* versionKey = "ImageJ";
constexpr const char* unitKey = "unit";
constexpr const char* micrometre = "um";
// A foreign description is read, but not without end.
constexpr std::size_t mostNotes = 100;
constexpr qsizetype longestLine = 1000;

constexpr double micrometresPerCm = 10000.0;

double pixelsPerCm(int pixels, double fieldUm) {
    const double result = fieldUm > 0.0 ? pixels / fieldUm * micrometresPerCm : 0.0;
    return std::isfinite(result) ? result : 0.0;
}

double fieldUm(Single factor, Long magnification) {
    const double field = magnification > 0 ? static_cast<double>(factor) * 100.0 / magnification : 0.0;
    return std::isfinite(field) && field > 0.0 ? field : 0.0;
}

// One line of printable ASCII; everything else becomes "?".
QByteArray plain(QByteArray text) {
    for (char& c : text) {
        c = c >= ' ' && c <= '~' ? c : '?';
    }
    return text.trimmed();
}

// Keys that say how pages and values are to be taken, as ImageJ documents them.
struct StructuralKey {
    const char* key;
    bool ofValues; // otherwise of the pages
};
constexpr std::array<StructuralKey, 22> structuralKeys{
    {{"images", false},  {"channels", false}, {"slices", false},    {"frames", false}, {"hyperstack", false},
     {"mode", false},    {"loop", false},     {"finterval", false}, {"fps", false},    {"tunit", false},
     {"spacing", false}, {"zunit", false},    {"zorigin", false},   {"min", true},     {"max", true},
     {"cf", true},       {"c0", true},        {"c1", true},         {"c2", true},      {"c3", true},
     {"c4", true},       {"vunit", true}}};

const StructuralKey* structural(const QString& key) {
    const auto* const found =
        std::find_if(structuralKeys.begin(), structuralKeys.end(),
                     [&key](const StructuralKey& one) { return key == QLatin1StringView(one.key); });
    return found != structuralKeys.end() ? found : nullptr;
}

bool isKey(const QString& key) {
    return !key.isEmpty() && std::all_of(key.begin(), key.end(), [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
    });
}

} // namespace

PictureScale fieldScale(const Magnification& magnification, QSize pixels) {
    return {pixelsPerCm(pixels.width(), fieldUm(magnification.x100, magnification.magnification)),
            pixelsPerCm(pixels.height(), fieldUm(magnification.y100, magnification.magnification))};
}

std::vector<PictureNote> cameraNotes(const StagePosition& stage, const Magnification& magnification) {
    std::vector<PictureNote> notes{
        {QStringLiteral("stageX"), QString::number(stage.x)},
        {QStringLiteral("stageY"), QString::number(stage.y)},
        {QStringLiteral("stageZ"), QString::number(stage.z)},
        {QStringLiteral("magnification"), QString::number(magnification.magnification)},
    };
    const double width = fieldUm(magnification.x100, magnification.magnification);
    const double height = fieldUm(magnification.y100, magnification.magnification);
    if (width > 0.0 && height > 0.0) {
        notes.push_back({QStringLiteral("fieldWidth"), QString::number(width, 'g', 9)});
        notes.push_back({QStringLiteral("fieldHeight"), QString::number(height, 'g', 9)});
    }
    return notes;
}

QByteArray imageDescription(const Picture& picture) {
    QByteArray text;
    const auto line = [&text](const QString& key, const QString& value) {
        text += key.toLatin1() + '=' + plain(value.toLatin1()) + '\n';
    };
    line(QString::fromLatin1(versionKey), QString::fromLatin1(formVersion));
    if (picture.scale.isKnown()) {
        line(QString::fromLatin1(unitKey), QString::fromLatin1(micrometre));
    }
    for (const PictureNote& note : picture.notes) {
        line(note.key, note.value);
    }
    return text;
}

ReadNotes readImageDescription(const QByteArray& text) {
    ReadNotes result;
    if (!text.startsWith(QByteArray(versionKey) + '=')) {
        return result;
    }
    for (const QByteArray& line : text.split('\n')) {
        const qsizetype equals = line.indexOf('=');
        if (equals < 1 || line.size() > longestLine || result.notes.size() >= mostNotes) {
            continue;
        }
        const QString key = QString::fromLatin1(line.left(equals).trimmed());
        const QString value = QString::fromLatin1(plain(line.mid(equals + 1).trimmed()));
        if (key == QLatin1StringView(unitKey)) {
            result.inMicrometres = value == QLatin1StringView(micrometre);
        } else if (key != QLatin1StringView(versionKey) && isKey(key)) {
            result.notes.push_back({key, value});
        }
    }
    return result;
}

std::vector<PictureNote> notesOfOnePage(const std::vector<PictureNote>& notes, int bitsPerChannel) {
    std::vector<PictureNote> kept;
    std::copy_if(notes.begin(), notes.end(), std::back_inserter(kept),
                 [bitsPerChannel](const PictureNote& note) {
                     const StructuralKey* key = structural(note.key);
                     return key == nullptr || (key->ofValues && bitsPerChannel == 8);
                 });
    return kept;
}

bool tellOfFurtherPages(const std::vector<PictureNote>& notes) {
    return std::any_of(notes.begin(), notes.end(), [](const PictureNote& note) {
        return note.key == QLatin1StringView("images") && note.value.toDouble() > 1.0;
    });
}

} // namespace ocuva
