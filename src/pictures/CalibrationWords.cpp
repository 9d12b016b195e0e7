#include "pictures/CalibrationWords.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ocuva {

namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(CalibrationWords)
};

QString placeWords(const ViewPlace& place) {
    return Words::tr("X:%1 Y:%2 at %3x").arg(place.stage.x).arg(place.stage.y).arg(place.magnification);
}

QString bareName(const CalibrationView& view) {
    return QFileInfo(QString::fromStdString(view.picture)).fileName();
}

QString madeAt(const std::optional<CalibrationView>& view) {
    if (view && view->isStored()) {
        return Words::tr("The calibration was made on the picture %1.").arg(bareName(*view));
    }
    return view && view->place ? Words::tr("The calibration was made at %1.").arg(placeWords(*view->place))
                               : Words::tr("It is not known where the calibration was made.");
}

QString shownAt(const CalibrationView& shown) {
    if (shown.isStored()) {
        return shown.place ? Words::tr("This picture was taken at %1.").arg(placeWords(*shown.place))
                           : Words::tr("It is not known where this picture was taken.");
    }
    return shown.place ? Words::tr("The stage is at %1.").arg(placeWords(*shown.place))
                       : Words::tr("It is not known where the stage is.");
}

CalibrationWords liveWords(const ViewedCalibration& viewed) {
    if (!viewed.isElsewhere()) {
        return {};
    }
    const ViewRelation& relation = *viewed.relation();
    const QString tip = Words::tr("The calibration belongs to another view");
    switch (relation.kind) {
    case ViewRelation::Kind::Moved:
        return {Words::tr("calibrated elsewhere: %1, %2 away").arg(relation.dx).arg(relation.dy), tip};
    case ViewRelation::Kind::OtherMagnification:
        return {Words::tr("calibrated at another magnification"), tip};
    default:
        return {Words::tr("calibrated elsewhere"), tip};
    }
}

CalibrationWords storedWords(const ViewedCalibration& viewed, bool described) {
    const QString point = Words::tr("Point at it to read stage positions");
    if (!viewed.relation() && !described) {
        return {Words::tr("no calibration"), Words::tr("No calibration: no stage positions")};
    }
    const ViewRelation relation = viewed.relation().value_or(ViewRelation{});
    switch (relation.kind) {
    case ViewRelation::Kind::Same:
        return {Words::tr("calibrated"), point};
    case ViewRelation::Kind::Moved:
        return {Words::tr("calibration moved by %1, %2").arg(relation.dx).arg(relation.dy),
                Words::tr("The calibration was made on another view: positions are moved by %1, %2\n%3")
                    .arg(relation.dx)
                    .arg(relation.dy)
                    .arg(point)};
    default:
        return {described ? Words::tr("not its calibration") : Words::tr("no calibration"),
                Words::tr("The calibration does not belong to this picture: no stage positions")};
    }
}

} // namespace

CalibrationWords calibrationWords(const ViewedCalibration& viewed, bool described) {
    return viewed.shown().isStored() ? storedWords(viewed, described) : liveWords(viewed);
}

QString moveQuestionNote(const Calibration& calibration, const ViewedCalibration& viewed) {
    if (calibration.points == CalibrationPoints{}) {
        return Words::tr("There is no calibration yet: this is not the place that you clicked.");
    }
    if (viewed.shown().isStored() || !viewed.isElsewhere()) {
        return {};
    }
    return Words::tr("%1 %2 This is not the place that you clicked.")
        .arg(madeAt(calibration.view), shownAt(viewed.shown()));
}

std::optional<DescriptionWarning> descriptionWarning(const Calibration& calibration,
                                                     const ViewedCalibration& viewed) {
    if (!viewed.isElsewhere()) {
        return {};
    }
    const bool unrelated = !viewed.relation() || viewed.relation()->kind == ViewRelation::Kind::Unknown;
    return DescriptionWarning{unrelated ? Words::tr("The calibration does not belong to this picture.")
                                        : Words::tr("The calibration belongs to another view."),
                              Words::tr("%1 %2 A description written now would give wrong stage positions.")
                                  .arg(madeAt(calibration.view), shownAt(viewed.shown()))};
}

} // namespace ocuva
