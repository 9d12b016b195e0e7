#include "controls/HostMessageBox.h"

#include <QApplication>
#include <QMessageBox>

#include <algorithm>

namespace ocuva {

namespace {

constexpr TarnLong buttonsMask = 0x0f;

bool anyWindowIsShown() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
                       [](const QWidget* window) { return window->isVisible(); });
}

TarnLong answerThatChangesLeast(TarnLong style) {
    switch (style & buttonsMask) {
    case TARN_BOX_OK_CANCEL:
        return TARN_ANSWER_CANCEL;
    case TARN_BOX_YES_NO:
        return TARN_ANSWER_NO;
    default:
        return TARN_ANSWER_OK;
    }
}

} // namespace

TarnLong showMessageBox(const std::string& text, const std::string& title, TarnLong style) {
    QMessageBox box(QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromLocal8Bit(text));
    box.setWindowTitle(QString::fromLocal8Bit(title));
    box.setIcon((style & TARN_BOX_CRITICAL) != 0 ? QMessageBox::Critical : QMessageBox::Information);
    switch (style & buttonsMask) {
    case TARN_BOX_OK_CANCEL:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case TARN_BOX_YES_NO:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
        break;
    default:
        box.setStandardButtons(QMessageBox::Ok);
    }
    switch (box.exec()) {
    case QMessageBox::Ok:
        return TARN_ANSWER_OK;
    case QMessageBox::Yes:
        return TARN_ANSWER_YES;
    case QMessageBox::No:
        return TARN_ANSWER_NO;
    case QMessageBox::Cancel:
        return TARN_ANSWER_CANCEL;
    default: // the process ends while the box is open
        return answerThatChangesLeast(style);
    }
}

TarnLong showHostMessageBox(const std::string& text, const std::string& title, TarnLong style) {
    return anyWindowIsShown() ? showMessageBox(text, title, style) : answerThatChangesLeast(style);
}

} // namespace ocuva
