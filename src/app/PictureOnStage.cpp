#include "app/PictureOnStage.h"

#include "pictures/PicturePoint.h"

#include <exception>
#include <utility>

namespace ocuva {

namespace {

void showPosition(StatusBar& sbMain, const QString& x, const QString& y, const QString& z) {
    sbMain.panel(QStringLiteral("X"))->setText(x);
    sbMain.panel(QStringLiteral("Y"))->setText(y);
    sbMain.panel(QStringLiteral("Z"))->setText(z);
}

} // namespace

void PictureOnStage::showPointedPosition(Single x, Single y, const TwipsRect& display) {
    try {
        const PicturePoint pointed = picturePoint(x, y, display.width, display.height);
        const StagePoint stage = m_context.calibration.ComputeStagePosition(pointed.XPic, pointed.YPic);
        showPosition(m_context.sbMain, QString::number(stage.XSt), QString::number(stage.YSt),
                     QString::number(stage.ZSt));
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

} // namespace ocuva
