#include "setup/SetupPage.h"

#include <QAbstractButton>

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {
constexpr int digitsOfABox = 8;
constexpr int captionColumn = 0;
constexpr int controlColumn = 1;
constexpr int unitColumn = 2;
constexpr int freeColumn = 3;
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
    grid.addWidget(label, row, captionColumn);
    grid.addWidget(control, row, controlColumn);
    if (!unit.isEmpty()) {
        grid.addWidget(new QLabel(unit), row, unitColumn);
    }
    grid.setColumnStretch(freeColumn, 1);
}

void SetupPage::lineUp(std::initializer_list<const QGroupBox*> frames) {
    for (const int column : {captionColumn, controlColumn}) {
        int widest = 0;
        for (const QGroupBox* frame : frames) {
            const auto& grid = dynamic_cast<const QGridLayout&>(*frame->layout());
            for (int row = 0; row < grid.rowCount(); ++row) {
                const QLayoutItem* item = grid.itemAtPosition(row, column);
                widest = std::max(widest, item != nullptr ? item->sizeHint().width() : 0);
            }
        }
        for (const QGroupBox* frame : frames) {
            dynamic_cast<QGridLayout&>(*frame->layout()).setColumnMinimumWidth(column, widest);
        }
    }
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
