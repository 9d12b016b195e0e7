#include "pictures/ViewNotes.h"

#include "pictures/CalibrationStore.h"

#include <algorithm>

namespace ocuva {

namespace {

const auto pointsKey = QStringLiteral("calibrationPoints");
const auto viewKey = QStringLiteral("calibrationView");
const auto ownView = QStringLiteral("own");
const auto unknownView = QStringLiteral("unknown");

std::optional<QString> valueOf(const std::vector<PictureNote>& notes, const QString& key) {
    const auto found =
        std::find_if(notes.begin(), notes.end(), [&key](const PictureNote& note) { return note.key == key; });
    return found != notes.end() ? std::optional(found->value) : std::nullopt;
}

std::optional<Long> numberOf(const std::vector<PictureNote>& notes, const char* key) {
    bool isNumber = false;
    const Long number = valueOf(notes, QString::fromLatin1(key)).value_or(QString()).toInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

QString pointsText(const CalibrationPoints& points) {
    return QString::fromStdString(storedText({points, {}}));
}

} // namespace

std::optional<ViewPlace> placeOf(const std::vector<PictureNote>& notes) {
    const std::optional<Long> x = numberOf(notes, "stageX");
    const std::optional<Long> y = numberOf(notes, "stageY");
    const std::optional<Long> z = numberOf(notes, "stageZ");
    const std::optional<Long> magnification = numberOf(notes, "magnification");
    if (!x || !y || !magnification) {
        return {};
    }
    return ViewPlace{{*x, *y, z.value_or(0)}, *magnification};
}

void noteCalibration(std::vector<PictureNote>& notes, const std::optional<CalibrationPoints>& points,
                     const std::optional<CalibrationView>& view, const CalibrationView& shown) {
    const bool isOwn = view && relationTo(*view, shown).kind == ViewRelation::Kind::Same;
    const auto erased = std::erase_if(
        notes, [](const PictureNote& note) { return note.key == pointsKey || note.key == viewKey; });
    if (!points || !view || (isOwn && shown.isStored() && erased == 0)) {
        return;
    }
    QString where = unknownView;
    if (isOwn) {
        where = ownView;
    } else if (view->place) {
        where = QString::fromStdString(placeText(*view->place));
    }
    notes.push_back({pointsKey, pointsText(*points)});
    notes.push_back({viewKey, where});
}

CalibrationView viewOfPoints(const CalibrationPoints& read, const std::vector<PictureNote>& notes,
                             const CalibrationView& shown) {
    const std::optional<QString> written = valueOf(notes, pointsKey);
    const std::optional<QString> where = valueOf(notes, viewKey);
    if (!written || !where) {
        return shown;
    }
    if (*written != pointsText(read)) {
        return {};
    }
    return *where == ownView ? shown : CalibrationView{{}, parsePlaceText(where->toStdString())};
}

} // namespace ocuva
