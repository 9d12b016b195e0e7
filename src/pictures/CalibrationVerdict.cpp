#include "pictures/CalibrationVerdict.h"

#include <QFormLayout>

namespace ocuva {

namespace {

using Kind = CalibrationRemark::Kind;

constexpr int remarkLines = 3;

const char* sentence(Kind kind) {
    switch (kind) {
    case Kind::OutOfRange:
        return QT_TRANSLATE_NOOP("ocuva::CalibrationVerdict", "The points are too far apart to compute.");
    case Kind::NoXScale:
        return QT_TRANSLATE_NOOP("ocuva::CalibrationVerdict",
                                 "All points have the same X on the picture: X has no scale.");
    case Kind::NoYScale:
        return QT_TRANSLATE_NOOP("ocuva::CalibrationVerdict",
                                 "All points have the same Y on the picture: Y has no scale.");
    case Kind::FlatX:
        return QT_TRANSLATE_NOOP("ocuva::CalibrationVerdict",
                                 "The stage's X is the same all over the picture.");
    case Kind::FlatY:
        return QT_TRANSLATE_NOOP("ocuva::CalibrationVerdict",
                                 "The stage's Y is the same all over the picture.");
    case Kind::SameOnPicture:
        return QT_TRANSLATE_NOOP("ocuva::CalibrationVerdict",
                                 "Points %1 and %2 are at the same place of the picture.");
    case Kind::SameOnStage:
        return QT_TRANSLATE_NOOP(
            "ocuva::CalibrationVerdict",
            "Points %1 and %2 are at the same place of the stage: there is no plane, and every Z is 0.");
    case Kind::LineOnPicture:
        return QT_TRANSLATE_NOOP(
            "ocuva::CalibrationVerdict",
            "The points lie on one line of the picture: the angle between the axes cannot be determined.");
    case Kind::LineOnStage:
        return QT_TRANSLATE_NOOP(
            "ocuva::CalibrationVerdict",
            "The points lie on one line of the stage: there is no plane, and every Z is 0.");
    case Kind::NearLineOnPicture:
        return QT_TRANSLATE_NOOP("ocuva::CalibrationVerdict",
                                 "The points lie nearly on one line of the picture: small errors grow.");
    case Kind::NearLineOnStage:
        return QT_TRANSLATE_NOOP("ocuva::CalibrationVerdict",
                                 "The points lie nearly on one line of the stage: small errors of Z grow.");
    }
    return "";
}

QString oneDecimal(double value) { return QString::number(value, 'f', 1); }

QLabel* makeValue(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

QString remarkText(const CalibrationRemark& remark) {
    const QString text = CalibrationVerdict::tr(sentence(remark.kind));
    return text.contains(QStringLiteral("%1")) ? text.arg(remark.first + 1).arg(remark.second + 1) : text;
}

CalibrationVerdict::CalibrationVerdict(QWidget* parent)
    : QFrame(parent)
    , LabelScale(makeValue(this, "LabelScale"))
    , LabelAngle(makeValue(this, "LabelAngle"))
    , LabelRemarks(makeValue(this, "LabelRemarks")) {
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(6);
    form->setLabelAlignment(Qt::AlignLeft);
    form->addRow(tr("Scale"), LabelScale);
    form->addRow(tr("Axes"), LabelAngle);
    form->addRow(LabelRemarks);
    LabelRemarks->setWordWrap(true);
    LabelRemarks->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Room for the usual remarks, so that the dialog does not jump while one types.
    LabelRemarks->setMinimumHeight(remarkLines * LabelRemarks->fontMetrics().lineSpacing());
}

void CalibrationVerdict::showQuality(const CalibrationQuality& quality, const QString& first) {
    LabelScale->setText(quality.isComputable() ? tr("X %1, Y %2 stage units across the whole picture")
                                                     .arg(oneDecimal(*quality.unitsPerWidth),
                                                          oneDecimal(*quality.unitsPerHeight))
                                               : tr("\u2013"));
    LabelAngle->setText(quality.axesAngleDegrees ? tr("%1\u00b0 between X and Y, picture turned by %2\u00b0")
                                                       .arg(oneDecimal(*quality.axesAngleDegrees),
                                                            oneDecimal(*quality.turnDegrees))
                                                 : tr("\u2013"));
    QStringList lines = first.isEmpty() ? QStringList{} : QStringList{first};
    for (const CalibrationRemark& remark : quality.remarks) {
        lines += remarkText(remark);
    }
    LabelRemarks->setText(lines.join(u'\n'));
}

void CalibrationVerdict::showReason(const QString& reason) {
    LabelScale->setText(tr("\u2013"));
    LabelAngle->setText(tr("\u2013"));
    LabelRemarks->setText(reason);
}

} // namespace ocuva
