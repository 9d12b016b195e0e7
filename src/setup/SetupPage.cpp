#include "setup/SetupPage.h"

#include <QAbstractButton>

#include <utility>

namespace ocuva {

namespace {
constexpr int digitsOfABox = 8;
} // namespace

SetupPage::SetupPage(const char* name, Report report, QWidget* parent)
    : QWidget(parent)
    , m_report(std::move(report))
    , m_frames(new QVBoxLayout(this)) {
    setObjectName(QString::fromLatin1(name));
}

void SetupPage::describe(QWidget& control, const char* name, const QString& help) {
    control.setObjectName(QString::fromLatin1(name));
    control.setToolTip(help);
    control.setWhatsThis(help);
    if (qobject_cast<QAbstractButton*>(&control) == nullptr) {
        control.setAccessibleName(help);
    } else {
        control.setAccessibleDescription(help);
    }
}

QGroupBox* SetupPage::addFrame(const char* name, const QString& caption) {
    auto* frame = new QGroupBox(caption, this);
    frame->setObjectName(QString::fromLatin1(name));
    m_frames->addWidget(frame);
    return frame;
}

TextBox* SetupPage::makeTextBox(const char* name, const QString& help) {
    auto* box = named(new TextBox, name, help);
    box->setDigits(digitsOfABox);
    box->setAlignment(Qt::AlignRight);
    return box;
}

void SetupPage::addRow(QGridLayout& grid, const QString& caption, QWidget* control, const QString& unit) {
    const int row = grid.rowCount();
    auto* label = new QLabel(caption);
    label->setBuddy(control);
    grid.addWidget(label, row, 0);
    grid.addWidget(control, row, 1);
    if (!unit.isEmpty()) {
        grid.addWidget(new QLabel(unit), row, 2);
    }
    constexpr int freeColumn = 3;
    grid.setColumnStretch(freeColumn, 1);
}

void SetupPage::whenLeft(TextBox* box, const std::function<void()>& handler) {
    connect(box, &QLineEdit::editingFinished, this, [box, handler] {
        if (box->isModified()) {
            handler();
        }
    });
}

void SetupPage::guarded(const std::function<void()>& handler) const {
    try {
        handler();
    } catch (const std::exception& error) {
        m_report(QString::fromLocal8Bit(error.what()));
    }
}

} // namespace ocuva
