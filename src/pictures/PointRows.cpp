#include "pictures/PointRows.h"

#include <QGridLayout>

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {

struct FieldRow {
    PointField field;
    const char* name;
    const char* label;
    const char* accessibleName;
    int column;
    const char* longest; // text that must find room
};
constexpr std::array<FieldRow, pointFieldCount> fields{{
    {PointField::XI, "XI", "X:", QT_TRANSLATE_NOOP("ocuva::PointRows", "Point %1, picture X"), 1, "-00000"},
    {PointField::YI, "YI", "Y:", QT_TRANSLATE_NOOP("ocuva::PointRows", "Point %1, picture Y"), 2, "-00000"},
    {PointField::XS, "XS", "X:", QT_TRANSLATE_NOOP("ocuva::PointRows", "Point %1, stage X"), 5, "-0000000"},
    {PointField::YS, "YS", "Y:", QT_TRANSLATE_NOOP("ocuva::PointRows", "Point %1, stage Y"), 6, "-0000000"},
    {PointField::ZS, "ZS", "Z:", QT_TRANSLATE_NOOP("ocuva::PointRows", "Point %1, stage Z"), 7, "-0000000"},
}};

constexpr int headingRow = 0;
constexpr int letterRow = 1;
constexpr int firstPointRow = 2;
constexpr int pickColumn = 3;
constexpr int gapColumn = 4;
constexpr int readColumn = 8;
constexpr int offColumn = 9;
constexpr int gapPixels = 12;
constexpr int boxPadding = 16;
constexpr int buttonPadding = 24;

int roomFor(const QWidget& widget, const char* text) {
    return widget.fontMetrics().horizontalAdvance(QString::fromLatin1(text));
}

} // namespace

PointRows::PointRows(QWidget* parent)
    : QFrame(parent) {
    setObjectName(QStringLiteral("FramePoint"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(6);
    grid->setColumnMinimumWidth(gapColumn, gapPixels);
    makeHeader(*grid);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        m_rows.at(i) = makeRow(*grid, i);
    }
}

void PointRows::makeHeader(QGridLayout& grid) {
    grid.addWidget(new QLabel(tr("On the picture, 1/10000"), this), headingRow, 1, 1, 3);
    grid.addWidget(new QLabel(tr("On the stage"), this), headingRow, 5, 1, 3);
    grid.addWidget(new QLabel(tr("Off by"), this), letterRow, offColumn, Qt::AlignRight);
    for (const FieldRow& field : fields) {
        grid.addWidget(new QLabel(QString::fromLatin1(field.label), this), letterRow, field.column);
    }
}

PointRows::Row PointRows::makeRow(QGridLayout& grid, std::size_t point) {
    const QString number = QString::number(point + 1);
    const int gridRow = firstPointRow + static_cast<int>(point);
    Row row;
    row.LabelPtI = new QLabel(tr("Point &%1").arg(number), this);
    row.LabelPtI->setObjectName(QStringLiteral("LabelPtI") + number);
    grid.addWidget(row.LabelPtI, gridRow, 0);
    for (const FieldRow& field : fields) {
        auto* box = new TextBox(this);
        box->setObjectName(QString::fromLatin1(field.name) + number);
        box->setAccessibleName(tr(field.accessibleName).arg(number));
        box->setAlignment(Qt::AlignRight);
        box->setFixedWidth(roomFor(*box, field.longest) + boxPadding);
        connect(box, &QLineEdit::textChanged, this,
                [this, point, which = field.field] { Q_EMIT edited(static_cast<int>(point), which); });
        grid.addWidget(box, gridRow, field.column);
        row.boxes.at(static_cast<std::size_t>(field.field)) = box;
    }
    row.ButI = new QPushButton(tr("Pick"), this);
    row.ButI->setObjectName(QStringLiteral("ButI") + number);
    row.ButI->setToolTip(tr("Choose point %1 by a click on the image (Alt+%1)").arg(number));
    row.ButI->setCheckable(true);
    row.ButX = new QPushButton(tr("Read"), this);
    row.ButX->setObjectName(QStringLiteral("ButX") + number);
    row.ButX->setToolTip(tr("Take where the stage stands as point %1 (Ctrl+%1)").arg(number));
    row.LabelPtI->setBuddy(row.ButI);
    row.ButX->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + static_cast<int>(point))));
    for (QPushButton* button : {row.ButI, row.ButX}) {
        button->setAutoDefault(false);
        button->setFixedWidth(button->fontMetrics().horizontalAdvance(button->text()) + buttonPadding);
    }
    row.LabelOff = new QLabel(this);
    row.LabelOff->setObjectName(QStringLiteral("LabelOff") + number);
    row.LabelOff->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.LabelOff->setMinimumWidth(roomFor(*row.LabelOff, "0000.0 worst") + gapPixels);
    grid.addWidget(row.ButI, gridRow, pickColumn);
    grid.addWidget(row.ButX, gridRow, readColumn);
    grid.addWidget(row.LabelOff, gridRow, offColumn);
    const std::array<QWidget*, 6> inOrder{row.boxes[1], row.ButI,     row.boxes[2],
                                          row.boxes[3], row.boxes[4], row.ButX};
    for (std::size_t i = 1; i < inOrder.size(); ++i) {
        setTabOrder(inOrder.at(i - 1), inOrder.at(i));
    }
    const int index = static_cast<int>(point);
    connect(row.ButI, &QPushButton::clicked, this, [this, index] { Q_EMIT pickPressed(index); });
    connect(row.ButX, &QPushButton::clicked, this, [this, index] { Q_EMIT readPressed(index); });
    return row;
}

TextBox* PointRows::box(std::size_t point, PointField field) const {
    return row(point).boxes.at(static_cast<std::size_t>(field));
}

std::array<PointTexts, 3> PointRows::texts() const {
    std::array<PointTexts, 3> texts;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        for (std::size_t f = 0; f < pointFieldCount; ++f) {
            texts.at(i).at(f) = m_rows.at(i).boxes.at(f)->text().toStdString();
        }
    }
    return texts;
}

bool PointRows::hasEmptyBoxes() const {
    return firstWithout({PointField::XI, PointField::YI, PointField::XS, PointField::YS, PointField::ZS})
        .has_value();
}

std::optional<std::size_t> PointRows::firstWithout(std::initializer_list<PointField> wanted) const {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (isInUse(i) && std::any_of(wanted.begin(), wanted.end(), [this, i](PointField field) {
                return box(i, field)->text().isEmpty();
            })) {
            return i;
        }
    }
    return {};
}

void PointRows::setPoint(std::size_t point, const PointTexts& texts) {
    for (std::size_t f = 0; f < pointFieldCount; ++f) {
        row(point).boxes.at(f)->setText(QString::fromStdString(texts.at(f)));
    }
}

void PointRows::clear() {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        setPoint(i, {});
    }
}

void PointRows::setTwoPoints(bool twoPoints) {
    m_twoPoints = twoPoints;
    enableRows();
}

void PointRows::setBusy(bool busy) {
    if (busy == m_busy) {
        return;
    }
    m_busy = busy;
    const QWidget* const meanwhile = std::exchange(m_focusMeanwhile, nullptr);
    QWidget* const before = window()->focusWidget();
    enableRows();
    if (busy) {
        m_focusBefore = before;
        m_focusMeanwhile = window()->focusWidget();
    } else if (m_focusBefore != nullptr && before == meanwhile) {
        m_focusBefore->setFocus(); // unless the operator has chosen another place
    }
}

void PointRows::setLocked(bool locked) {
    m_locked = locked;
    enableRows();
}

void PointRows::enableRows() {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const Row& row = m_rows.at(i);
        const bool inUse = isInUse(i);
        row.LabelPtI->setEnabled(inUse);
        for (TextBox* box : row.boxes) {
            box->setEnabled(inUse);
            box->setReadOnly(m_locked);
            box->setFocusPolicy(m_locked ? Qt::ClickFocus : Qt::StrongFocus);
        }
        row.ButI->setEnabled(inUse && !m_busy && !m_locked);
        row.ButX->setEnabled(inUse && !m_busy && !m_locked);
    }
}

void PointRows::showSelected(std::optional<std::size_t> point) {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        m_rows.at(i).ButI->setChecked(point == i);
    }
}

void PointRows::showResiduals(const CalibrationQuality& quality) {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        QLabel* label = m_rows.at(i).LabelOff;
        const bool isWorst = quality.worst == i;
        QFont font = this->font();
        font.setBold(isWorst);
        label->setFont(font);
        if (!quality.residuals) {
            label->clear();
            continue;
        }
        const QString length = QString::number(quality.residuals->at(i).length(), 'f', 1);
        label->setText(isWorst ? tr("%1 worst").arg(length) : length);
    }
}

} // namespace ocuva
