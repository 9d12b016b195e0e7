#include "app/PictureOnStage.h"

#include <QShortcut>

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

namespace ocuva {

namespace {

void showPosition(StatusBar& sbMain, const QString& x, const QString& y, const QString& z) {
    sbMain.panel(QStringLiteral("X"))->setText(x);
    sbMain.panel(QStringLiteral("Y"))->setText(y);
    sbMain.panel(QStringLiteral("Z"))->setText(z);
}

PicturePoint placeOn(const TwipsRect& display, Single x, Single y) {
    constexpr Long most = std::numeric_limits<Integer>::max();
    return std::max(display.width, display.height) <= most
               ? picturePoint(x, y, display.width, display.height)
               : widePicturePoint(x, y, display.width, display.height);
}

} // namespace

PictureOnStage::PictureOnStage(const PictureOnStageContext& context)
    : m_context(context)
    , m_frmSetupStage(std::make_unique<frmSetupStage>(
          SetupStageContext{context.calibration, context.host.tn_reg(), context.host.tn_log(),
                            context.host.tn_micro_proxy(), context.fOcuva, context.report, context.log,
                            context.shownView, context.changed, context.walk},
          &context.window))
    , m_marks(new PointMarks(&context.display)) {
    QObject::connect(m_frmSetupStage.get(), &frmSetupStage::pickedChanged, m_marks,
                     [this] { refreshMarks(); });
    makeKeys();
}

// The operator clicks on the image while the assistant walks: Enter and Escape mean it there too.
void PictureOnStage::makeKeys() {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        auto* shortcut = new QShortcut(QKeySequence(key), &m_context.window);
        shortcut->setAutoRepeat(false);
        shortcut->setEnabled(false);
        frmSetupStage* dialog = m_frmSetupStage.get();
        QObject::connect(shortcut, &QShortcut::activated, dialog, [dialog, key] {
            key == Qt::Key_Escape ? dialog->escape() : dialog->cmdWalk->click();
        });
        QObject::connect(&dialog->assistant(), &CalibrationAssistant::changed, shortcut, [dialog, shortcut] {
            const CalibrationWalk& walk = dialog->assistant().walk();
            shortcut->setEnabled(walk.isUnderWay() && walk.state() != CalibrationWalk::State::Done);
        });
    }
}

void PictureOnStage::refreshMarks() {
    std::vector<NumberedPoint> points;
    for (const PickedPoint& picked : m_frmSetupStage->pickedPoints()) {
        const bool isHere =
            !picked.view || relationTo(*picked.view, m_context.shownView()).kind == ViewRelation::Kind::Same;
        if (isHere && !m_context.stageMoves()) {
            points.push_back({picked.at.XPic, picked.at.YPic, static_cast<int>(picked.point) + 1});
        }
    }
    m_marks->show(points);
}

PictureOnStage::~PictureOnStage() = default;

Calibration& PictureOnStage::calibration() {
    if (!std::exchange(m_takenUp, true)) {
        m_frmSetupStage->takeUpLast();
    }
    return m_context.calibration;
}

void PictureOnStage::openDialog() {
    calibration();
    m_frmSetupStage->openModeless();
}

void PictureOnStage::showPointedPosition(Single x, Single y, const TwipsRect& display) {
    m_pointing = true;
    try {
        const PicturePoint pointed = placeOn(display, x, y);
        calibration();
        const StagePosition stage = viewed().position(pointed.XPic, pointed.YPic);
        showPosition(m_context.sbMain, QString::number(stage.x), QString::number(stage.y),
                     QString::number(stage.z));
        m_failing = false;
    } catch (const std::exception& error) {
        const QString dash(QChar(0x2013));
        showPosition(m_context.sbMain, dash, dash, dash);
        if (!std::exchange(m_failing, true)) {
            m_context.log(QObject::tr("no stage position for the picture: %1")
                              .arg(QString::fromLocal8Bit(error.what())));
        }
    }
}

void PictureOnStage::takePoint(Single x, Single y, const TwipsRect& display) {
    m_frmSetupStage->takePoint(placeOn(display, x, y));
}

void PictureOnStage::clickPicture(Single x, Single y, const TwipsRect& display) {
    calibration();
    m_frmSetupStage->clickPicture(placeOn(display, x, y));
}

void PictureOnStage::unload() { m_frmSetupStage->unload(); }

} // namespace ocuva
