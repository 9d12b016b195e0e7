#include "app/StatusBar.h"

#include "app/FittedText.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace ocuva {

namespace {

constexpr int lampDiameter = 9;
constexpr int lampGap = 6;

constexpr int marginPixels = 6;

} // namespace

StatusPanel::StatusPanel(const QString& key, const QString& toolTip, QWidget* parent)
    : QLabel(parent) {
    setObjectName(key);
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setTextFormat(Qt::PlainText);
    setFocusPolicy(Qt::TabFocus); // a click does not take the focus
}

void StatusPanel::setText(const QString& text) {
    if (text != QLabel::text()) {
        QLabel::setText(text);
        setAccessibleDescription(text);
        Q_EMIT textChanged();
    }
}

void StatusPanel::setCaption(const QString& caption) {
    m_caption = caption;
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const QString longest = caption + QStringLiteral("-0000000");
    setMinimumWidth(3 * marginPixels + fontMetrics().horizontalAdvance(longest));
    update();
}

void StatusPanel::setLamp(const QColor& colour) {
    m_lamp = colour;
    update();
}

QRect StatusPanel::roomForText() const {
    return contentsRect().adjusted(m_lamp.isValid() ? lampDiameter + lampGap : 0, 0, 0, 0);
}

bool StatusPanel::hasRoomFor(const QString& text) const {
    return fittedText(text, font(), roomForText().size()).isWhole;
}

void StatusPanel::setTip(const QString& tip) {
    m_tip = tip;
    update();
}

void StatusPanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QRect room = roomForText();
    if (m_lamp.isValid()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(m_lamp.darker(130), 1.0));
        painter.setBrush(m_lamp);
        const int top = room.center().y() - lampDiameter / 2;
        const QRectF lamp(contentsRect().left(), top, lampDiameter, lampDiameter);
        painter.drawEllipse(lamp.adjusted(0.5, 0.5, -0.5, -0.5));
    }
    if (!m_caption.isEmpty()) {
        style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              QWidget::isEnabled(), m_caption, foregroundRole());
        room.setLeft(room.left() + fontMetrics().horizontalAdvance(m_caption) + marginPixels);
    }
    const FittedText shown = fittedText(m_tip.isEmpty() ? text() : m_tip, font(), room.size());
    painter.setFont(shown.font);
    const int lineHeight = room.height() / static_cast<int>(shown.lines.size());
    for (qsizetype i = 0; i < shown.lines.size(); ++i) {
        const QRect line(room.left(), room.top() + static_cast<int>(i) * lineHeight, room.width(),
                         lineHeight);
        style()->drawItemText(&painter, line, static_cast<int>(alignment()), palette(), QWidget::isEnabled(),
                              shown.lines.at(i), foregroundRole());
    }
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void StatusPanel::mouseReleaseEvent(QMouseEvent* event) {
    if (m_doubleClick) {
        m_doubleClick = false;
    } else if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        Q_EMIT clicked();
    }
}

void StatusPanel::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_doubleClick = true;
        Q_EMIT doubleClicked();
    }
}

void StatusPanel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
        Q_EMIT clicked();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT doubleClicked();
        break;
    default:
        QLabel::keyPressEvent(event);
    }
}

StatusBar::StatusBar(QWidget* parent)
    : QStatusBar(parent) {
    setObjectName(QStringLiteral("sbMain"));
    struct Row {
        const char* key;
        QString toolTip;
    };
    const std::array<Row, 4> rows{{{"X", tr("Stage X current position")},
                                   {"Y", tr("Stage Y current position")},
                                   {"Z", tr("Stage Z current position")},
                                   {"Info", tr("State of the live image")}}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const QString key = QString::fromLatin1(rows.at(i).key);
        auto* panel = new StatusPanel(key, rows.at(i).toolTip, this);
        m_panels.at(i) = panel;
        connect(panel, &StatusPanel::clicked, this, &StatusBar::panelClicked);
        connect(panel, &StatusPanel::textChanged, this, &StatusBar::panelTextChanged);
        connect(panel, &StatusPanel::doubleClicked, this, &StatusBar::panelDoubleClicked);
        panel->setContentsMargins(marginPixels, 0, marginPixels, 0);
        if (i < 3) {
            panel->setCaption(key);
            addWidget(panel);
        } else {
            // It uses the available room and never makes the window wider.
            panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
            panel->setMinimumHeight(heightOfTwoLines(panel->font()));
            connect(panel, &StatusPanel::clicked, this, &StatusBar::informationClicked);
            addWidget(panel, 1);
        }
    }
}

QString StatusBar::spokenText() const {
    const auto said = [this](const char* key) { return panel(QString::fromLatin1(key))->text(); };
    return tr("X %1, Y %2, Z %3, %4").arg(said("X"), said("Y"), said("Z"), said("Info").simplified());
}

StatusPanel* StatusBar::panel(const QString& key) const {
    for (StatusPanel* panel : m_panels) {
        if (panel->objectName() == key) {
            return panel;
        }
    }
    return nullptr;
}

} // namespace ocuva
