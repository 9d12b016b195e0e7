#include "app/toolbar/CustomizeToolbarDialog.h"

#include "app/toolbar/ImageList.h"
#include "app/toolbar/ToolbarButtons.h"
#include "controls/WindowPlace.h"

#include <QCoreApplication>
#include <QDrag>
#include <QDropEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {

constexpr int visibleRows = 13; // the whole default layout
const QSize rowIconSize(smallIconPx, smallIconPx);

QString rowMimeType() { return QStringLiteral("application/x-ocuva-toolbar-row"); }

QPushButton* pushButton(const char* name, const QString& text) {
    auto* const button = new QPushButton(text);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

} // namespace

ButtonList::ButtonList(const QString& name) {
    setObjectName(name);
    setIconSize(rowIconSize);
    setUniformItemSizes(true);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDragDropOverwriteMode(false);
}

QStringList ButtonList::mimeTypes() const { return {rowMimeType()}; }

Qt::DropActions ButtonList::supportedDropActions() const { return Qt::MoveAction; }

// Process number, list and row: a row of another copy of the program means nothing here.
QMimeData* ButtonList::mimeData(const QList<QListWidgetItem*>& items) const {
    if (items.isEmpty()) {
        return nullptr;
    }
    auto* const dragged = new QMimeData;
    dragged->setData(rowMimeType(), QStringLiteral("%1:%2:%3")
                                        .arg(QCoreApplication::applicationPid())
                                        .arg(objectName())
                                        .arg(row(items.first()))
                                        .toUtf8());
    return dragged;
}

// The base class would remove the dragged rows after a move; here the dialog refills the lists.
void ButtonList::startDrag(Qt::DropActions) {
    const QList<QListWidgetItem*> items = selectedItems();
    if (items.isEmpty()) {
        return;
    }
    auto* const drag = new QDrag(this);
    drag->setMimeData(mimeData(items));
    drag->setPixmap(items.first()->icon().pixmap(rowIconSize));
    drag->exec(Qt::MoveAction);
}

void ButtonList::dropEvent(QDropEvent* event) {
    const QList<QByteArray> parts = event->mimeData()->data(rowMimeType()).split(':');
    bool isNumber = false;
    const int sourceRow = parts.value(2).toInt(&isNumber);
    if (!isNumber || parts.value(0) != QByteArray::number(QCoreApplication::applicationPid())) {
        event->ignore();
        return;
    }
    const QPoint position = event->position().toPoint();
    const QListWidgetItem* const under = itemAt(position);
    const bool lowerHalf = under != nullptr && position.y() > visualItemRect(under).center().y();
    const int gap = under == nullptr ? count() : row(under) + (lowerHalf ? 1 : 0);
    event->setDropAction(Qt::MoveAction);
    event->accept();
    setState(QAbstractItemView::NoState);
    viewport()->update();
    Q_EMIT rowDropped(QString::fromUtf8(parts.value(1)), sourceRow, gap);
}

CustomizeToolbarDialog::CustomizeToolbarDialog(const ToolbarLayout& layout,
                                               std::function<QIcon(const QString&)> iconOf, QWidget* parent)
    : QDialog(parent)
    , lstAvailable(new ButtonList(QStringLiteral("lstAvailable")))
    , lstCurrent(new ButtonList(QStringLiteral("lstCurrent")))
    , cmdAdd(pushButton("cmdAdd", tr("&Add ->")))
    , cmdRemove(pushButton("cmdRemove", tr("<- &Remove")))
    , cmdMoveUp(pushButton("cmdMoveUp", tr("Move &Up")))
    , cmdMoveDown(pushButton("cmdMoveDown", tr("Move &Down")))
    , cmdReset(pushButton("cmdReset", tr("R&eset")))
    , cmdClose(pushButton("cmdClose", tr("&Close")))
    , m_layout(layout)
    , m_iconOf(std::move(iconOf)) {
    setObjectName(QStringLiteral("dlgCustomizeToolbar"));
    setWindowTitle(tr("Customize Toolbar"));
    arrange();
    connectControls();
    fillLists(0);
    new WindowPlace(*this, besideItsOwner(parent));
}

void CustomizeToolbarDialog::arrange() {
    auto* const lblAvailable = new QLabel(tr("A&vailable toolbar buttons:"));
    auto* const lblCurrent = new QLabel(tr("Curren&t toolbar buttons:"));
    lblAvailable->setBuddy(lstAvailable);
    lblCurrent->setBuddy(lstCurrent);
    // A list does not lend its label's name to screen readers.
    lstAvailable->setAccessibleName(tr("Available toolbar buttons"));
    lstCurrent->setAccessibleName(tr("Current toolbar buttons"));

    auto* const between = new QVBoxLayout;
    between->addStretch();
    between->addWidget(cmdAdd);
    between->addWidget(cmdRemove);
    between->addStretch();
    auto* const beside = new QVBoxLayout;
    beside->addWidget(cmdClose);
    beside->addWidget(cmdReset);
    beside->addStretch();
    beside->addWidget(cmdMoveUp);
    beside->addWidget(cmdMoveDown);

    auto* const grid = new QGridLayout(this);
    grid->addWidget(lblAvailable, 0, 0);
    grid->addWidget(lstAvailable, 1, 0);
    grid->addLayout(between, 1, 1);
    grid->addWidget(lblCurrent, 0, 2);
    grid->addWidget(lstCurrent, 1, 2);
    grid->addLayout(beside, 1, 3);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);

    addRow(*lstAvailable, QStringLiteral("Sep1"));
    const int rowHeight = std::max(lstAvailable->sizeHintForRow(0), rowIconSize.height());
    for (ButtonList* list : {lstAvailable, lstCurrent}) {
        list->setMinimumSize(rowHeight * 7, rowHeight * 6);
    }
    resize(sizeHint().width(), rowHeight * visibleRows + 4 * rowHeight);
}

void CustomizeToolbarDialog::connectControls() {
    connect(cmdAdd, &QPushButton::clicked, this,
            [this] { add(lstAvailable->currentRow(), lstCurrent->currentRow() + 1); });
    connect(cmdRemove, &QPushButton::clicked, this, [this] { remove(lstCurrent->currentRow()); });
    connect(cmdMoveUp, &QPushButton::clicked, this,
            [this] { move(lstCurrent->currentRow(), lstCurrent->currentRow() - 1); });
    connect(cmdMoveDown, &QPushButton::clicked, this,
            [this] { move(lstCurrent->currentRow(), lstCurrent->currentRow() + 2); });
    connect(cmdReset, &QPushButton::clicked, this, &CustomizeToolbarDialog::reset);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);

    connect(lstAvailable, &QListWidget::itemDoubleClicked, cmdAdd, &QPushButton::click);
    connect(lstCurrent, &QListWidget::itemDoubleClicked, cmdRemove, &QPushButton::click);
    connect(lstAvailable, &QListWidget::currentRowChanged, this, &CustomizeToolbarDialog::enableButtons);
    connect(lstCurrent, &QListWidget::currentRowChanged, this, &CustomizeToolbarDialog::enableButtons);
    // Queued: the lists are refilled, which must not happen during a drag that is still ending.
    connect(lstCurrent, &ButtonList::rowDropped, this, &CustomizeToolbarDialog::dropOnCurrent,
            Qt::QueuedConnection);
    connect(lstAvailable, &ButtonList::rowDropped, this, &CustomizeToolbarDialog::dropOnAvailable,
            Qt::QueuedConnection);
}

void CustomizeToolbarDialog::add(int availableRow, int gap) {
    const int row = std::clamp(gap, 0, m_layout.size());
    const bool added = availableRow == 0
                           ? m_layout.insertSeparator(row)
                           : m_layout.insertButton(row, m_layout.available().value(availableRow - 1));
    if (added) {
        changed(row);
    }
}

void CustomizeToolbarDialog::remove(int row) {
    if (m_layout.remove(row)) {
        changed(row);
    }
}

void CustomizeToolbarDialog::move(int row, int gap) {
    if (m_layout.move(row, gap)) {
        changed(gap > row ? gap - 1 : gap);
    }
}

void CustomizeToolbarDialog::reset() {
    m_layout = ToolbarLayout::design(m_layout.buttons());
    changed(0);
}

void CustomizeToolbarDialog::dropOnCurrent(const QString& source, int row, int gap) {
    if (source == lstAvailable->objectName()) {
        add(row, gap);
    } else {
        move(row, gap);
    }
}

void CustomizeToolbarDialog::dropOnAvailable(const QString& source, int row) {
    if (source == lstCurrent->objectName()) {
        remove(row);
    }
}

void CustomizeToolbarDialog::changed(int currentRow) {
    fillLists(currentRow);
    Q_EMIT layoutChanged(m_layout);
}

void CustomizeToolbarDialog::fillLists(int currentRow) {
    const int availableRow = std::max(0, lstAvailable->currentRow());
    {
        const QSignalBlocker quietAvailable(lstAvailable);
        const QSignalBlocker quietCurrent(lstCurrent);
        lstAvailable->clear();
        addRow(*lstAvailable, QStringLiteral("Sep1"));
        for (const QString& key : m_layout.available()) {
            addRow(*lstAvailable, key);
        }
        lstCurrent->clear();
        for (const QString& key : m_layout.keys()) {
            addRow(*lstCurrent, key);
        }
        lstAvailable->setCurrentRow(std::min(availableRow, lstAvailable->count() - 1));
        lstCurrent->setCurrentRow(std::min(currentRow, lstCurrent->count() - 1));
    }
    enableButtons();
}

void CustomizeToolbarDialog::addRow(ButtonList& list, const QString& key) const {
    const ToolbarButton* const button = m_layout.buttons().find(key);
    auto* const row =
        new QListWidgetItem(button != nullptr ? shownText(button->text) : shownText(separatorText));
    row->setData(Qt::UserRole, key);
    row->setIcon(m_iconOf(key));
    if (button != nullptr) {
        row->setToolTip(shownText(button->tooltip));
    }
    row->setSizeHint({0, rowIconSize.height() + 4});
    list.addItem(row);
}

void CustomizeToolbarDialog::enableButtons() {
    const int row = lstCurrent->currentRow();
    cmdAdd->setEnabled(lstAvailable->currentRow() >= 0);
    cmdRemove->setEnabled(row >= 0);
    cmdMoveUp->setEnabled(row > 0);
    cmdMoveDown->setEnabled(row >= 0 && row < lstCurrent->count() - 1);
    cmdReset->setEnabled(!(m_layout == ToolbarLayout::design(m_layout.buttons())));
}

void CustomizeToolbarDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete && lstCurrent->hasFocus()) {
        remove(lstCurrent->currentRow());
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace ocuva
