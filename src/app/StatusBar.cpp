#include "app/StatusBar.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QMouseEvent>

namespace ocuva {

namespace {

// A position panel: the axis letter, then the number right-aligned in room for the longest position.
QWidget* withCaption(StatusPanel* panel, const QString& caption, QWidget* parent) {
    auto* cell = new QWidget(parent);
    auto* row = new QHBoxLayout(cell);
    row->setContentsMargins(6, 0, 6, 0);
    row->setSpacing(6);
    auto* letter = new QLabel(caption, cell);
    row->addWidget(letter);
    row->addWidget(panel);
    panel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    panel->setMinimumWidth(QFontMetrics(panel->font()).horizontalAdvance(QStringLiteral("-0000000")));
    return cell;
}

} // namespace

StatusPanel::StatusPanel(const QString& key, const QString& toolTip, QWidget* parent)
    : QLabel(parent) {
    setObjectName(key);
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setTextFormat(Qt::PlainText);
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
        connect(panel, &StatusPanel::doubleClicked, this, &StatusBar::panelDoubleClicked);
        if (i < 3) {
            addWidget(withCaption(panel, key, this));
        } else {
            panel->setContentsMargins(6, 0, 6, 0);
            addWidget(panel, 1);
        }
    }
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
