#include "standards/frmStdList.h"

#include "controls/AccessLetter.h"
#include "controls/WindowPlace.h"
#include "platform/Desktop.h"
#include "standards/StandardText.h"

#include <QDragMoveEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {

// The dialog's margins in pixels: 240 twips less in width and height for the list, 60 twips between it and
// the buttons.
constexpr int outerMargin = 8;
constexpr int innerGap = 4;
constexpr int numberColumnWidth = 72;

QString shown(const std::string& text) { return QString::fromLocal8Bit(text); }
QString readingStandards() { return frmStdList::tr("Reading the standards…"); }

} // namespace

StdListView::StdListView(QWidget* parent)
    : QTreeWidget(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
}

void StdListView::setDropHighlight(QTreeWidgetItem* item) {
    m_dropHighlight = item;
    viewport()->update();
}

void StdListView::dragEnterEvent(QDragEnterEvent* event) { event->acceptProposedAction(); }

void StdListView::dragMoveEvent(QDragMoveEvent* event) {
    setDropHighlight(itemAt(event->position().toPoint()));
    event->acceptProposedAction();
}

void StdListView::dragLeaveEvent(QDragLeaveEvent* /*event*/) { setDropHighlight(nullptr); }

void StdListView::dropEvent(QDropEvent* event) {
    setDropHighlight(nullptr);
    // Nothing is accepted: a move would make the source remove its rows.
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
}

void StdListView::drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                          const QModelIndex& index) const {
    QTreeWidget::drawRow(painter, options, index);
    if (m_dropHighlight != nullptr && itemFromIndex(index) == m_dropHighlight) {
        painter->setPen(palette().color(QPalette::Highlight));
        painter->drawRect(options.rect.adjusted(0, 0, -1, -1));
    }
}

frmStdList::frmStdList(StandardList& list, TnLibProxy& libProxy, std::function<bool()> addStandard,
                       std::function<void()> fillStageMenu,
                       std::function<std::shared_ptr<void>(const QString& what)> holdInput, QWidget* owner)
    : QDialog(owner)
    , m_list(list)
    , m_libProxy(libProxy)
    , m_addStandard(std::move(addStandard))
    , m_fillStageMenu(std::move(fillStageMenu))
    , m_holdInput(std::move(holdInput)) {
    setObjectName(QStringLiteral("frmStdList"));
    setWindowTitle(tr("Customize Standard List"));
    setModal(true);
    makeControls();
    new WindowPlace(*this, besideItsOwner(owner));
    connect(cmdUp, &QPushButton::clicked, this, [this] { edit(&StandardRows::up); });
    connect(cmdDown, &QPushButton::clicked, this, [this] { edit(&StandardRows::down); });
    connect(cmdDelete, &QPushButton::clicked, this, &frmStdList::cmdDelete_Click);
    connect(cmdInsert, &QPushButton::clicked, this, &frmStdList::cmdInsert_Click);
    connect(cmdOk, &QPushButton::clicked, this, &QDialog::accept);
}

void frmStdList::makeControls() {
    lblStdEntries = new QLabel(tr("Current Standard List"), this);
    lblStdEntries->setObjectName(QStringLiteral("lblStdEntries"));
    lvwStdEntries = new StdListView(this);
    lvwStdEntries->setObjectName(QStringLiteral("lvwStdEntries"));
    lvwStdEntries->setAccessibleName(lblStdEntries->text());
    lvwStdEntries->setColumnCount(0);
    lblStdEntries->setBuddy(lvwStdEntries);
    frStdListCmds = new QWidget(this);
    frStdListCmds->setObjectName(QStringLiteral("frStdListCmds"));

    auto* column = new QVBoxLayout(frStdListCmds);
    column->setContentsMargins(0, 0, 0, 0);
    const auto addButton = [&](const char* name, const QString& text, const QString& help) {
        auto* button = new LetteredButton(text, frStdListCmds);
        button->setObjectName(QString::fromLatin1(name));
        button->setAccessibleName(help);
        button->setToolTip(help);
        button->setAutoDefault(false);
        column->addWidget(button);
        return button;
    };
    cmdInsert = addButton("cmdInsert", tr("&Insert..."), tr("Insert a standard from its file"));
    cmdDelete = addButton("cmdDelete", tr("&Delete"), tr("Take the selected standards off the list (Del)"));
    column->addSpacing(outerMargin);
    cmdUp = addButton("cmdUp", QStringLiteral("\u2191"), tr("Move the selected standards up (Alt+Up)"));
    cmdDown =
        addButton("cmdDown", QStringLiteral("\u2193"), tr("Move the selected standards down (Alt+Down)"));
    column->addStretch(1);
    cmdOk = addButton("cmdOk", tr("&OK"), tr("Close the list"));
    cmdOk->setDefault(true);
    cmdUp->setShortcut(Qt::ALT | Qt::Key_Up);
    cmdDown->setShortcut(Qt::ALT | Qt::Key_Down);
    auto* deleteKey = new QShortcut(QKeySequence::Delete, lvwStdEntries);
    deleteKey->setContext(Qt::WidgetShortcut);
    deleteKey->setAutoRepeat(false);
    connect(deleteKey, &QShortcut::activated, cmdDelete, &QPushButton::click);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    grid->setSpacing(innerGap);
    grid->setHorizontalSpacing(outerMargin);
    grid->addWidget(lblStdEntries, 0, 0);
    grid->addWidget(lvwStdEntries, 1, 0);
    grid->addWidget(frStdListCmds, 1, 1);
    lblStdNote = new QLabel(this);
    lblStdNote->setObjectName(QStringLiteral("lblStdNote"));
    lblStdNote->setWordWrap(true);
    lblStdNote->hide();
    grid->addWidget(lblStdNote, 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);
    resize(560, 360);
}

void frmStdList::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous()) { // not back from being minimised
        FillStdList();
    }
}

void frmStdList::done(int result) {
    {
        const auto hold = m_holdInput(readingStandards());
        m_fillStageMenu();
    }
    QDialog::done(result);
}

void frmStdList::SetupStdColumns() {
    lvwStdEntries->setColumnCount(4);
    lvwStdEntries->setHeaderLabels(
        {tr("File"), QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")});
    QHeaderView* header = lvwStdEntries->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int i = 1; i < 4; ++i) {
        lvwStdEntries->headerItem()->setTextAlignment(i, Qt::AlignRight | Qt::AlignVCenter);
        header->resizeSection(i, numberColumnWidth);
    }
}

void frmStdList::FillStdList() {
    const auto hold = m_holdInput(readingStandards());
    m_rows.clear();
    if (lvwStdEntries->columnCount() == 0) {
        SetupStdColumns();
    }
    readStandards();
    showRows();
    note(readingNote());
}

void frmStdList::readStandards() {
    m_reading = {};
    StandardObject object(m_libProxy);
    m_reading.databaseOpened = object.isOpen();
    const std::string directory = m_list.directory();
    std::string name;
    Integer index = 0;
    while (m_list.GetNextStandard(name, index)) {
        const bool isReadable = object.isOpen() && object.read(name);
        m_reading.add(name, isReadable);
        if (!isReadable || m_rows.has(name)) {
            continue;
        }
        StandardRow row{name, standardText(name, directory), {}, false};
        if (const std::optional<StagePosition> position = object.position()) {
            row.subItems = {std::to_string(position->x), std::to_string(position->y),
                            std::to_string(position->z)};
        }
        m_rows.add(std::move(row));
    }
}

std::vector<std::string> frmStdList::keys() const {
    std::vector<std::string> keys;
    for (const StandardRow& row : m_rows.rows()) {
        keys.push_back(row.key);
    }
    return keys;
}

void frmStdList::SaveStdList() {
    const auto hold = m_holdInput(tr("Storing the standards…"));
    const bool stored = m_list.store(keys());
    note(stored ? QString()
                : tr("The host could not store all of the list. See the host's log; the next start tries it "
                     "again."));
}

void frmStdList::note(const QString& text) {
    lblStdNote->setText(text);
    lblStdNote->setVisible(!text.isEmpty());
}

QString frmStdList::readingNote() const {
    if (!m_reading.databaseOpened) {
        return tr(
            "The host's database cannot be opened. The list stays stored as it is and cannot be changed "
            "now.");
    }
    if (!m_reading.mayBeStored()) {
        return tr("The host can read none of the standards on the list (%1). The list stays stored as it is "
                  "and cannot be changed now. Check the standards' files, then open this window again.")
            .arg(m_reading.listed);
    }
    return m_reading.unreadable == 0
               ? QString()
               : tr("Standards that the host cannot read are not shown: %1 of %2. The next change takes them "
                    "off the list.")
                     .arg(m_reading.unreadable)
                     .arg(m_reading.listed);
}

QString frmStdList::insertNote(int countBefore) const {
    const QString name = shown(m_reading.last);
    if (m_reading.lastIsUnreadable) {
        return tr("\"%1\" was not added: the host cannot read it as a standard.").arg(name);
    }
    return m_rows.count() > countBefore ? QString() : tr("\"%1\" is on the list already.").arg(name);
}

void frmStdList::takeSelection() {
    for (int i = 1; i <= m_rows.count(); ++i) {
        m_rows.select(i, lvwStdEntries->topLevelItem(i - 1)->isSelected());
    }
}

void frmStdList::showRows() {
    QList<QTreeWidgetItem*> items;
    items.reserve(m_rows.count());
    for (const StandardRow& row : m_rows.rows()) {
        auto* item = new QTreeWidgetItem(
            {shown(row.text), shown(row.subItems[0]), shown(row.subItems[1]), shown(row.subItems[2])});
        item->setToolTip(0, shown(row.key));
        for (int i = 1; i < 4; ++i) {
            item->setTextAlignment(i, Qt::AlignRight | Qt::AlignVCenter);
        }
        items.append(item);
    }
    const int scrolledTo = lvwStdEntries->verticalScrollBar()->value();
    {
        const FrozenDrawing frozen(*lvwStdEntries);
        lvwStdEntries->clear();
        lvwStdEntries->addTopLevelItems(items);
        for (int i = 1; i <= m_rows.count(); ++i) {
            lvwStdEntries->topLevelItem(i - 1)->setSelected(m_rows.row(i).selected);
        }
    }
    lvwStdEntries->verticalScrollBar()->setValue(scrolledTo);
    if (const int first = m_rows.firstSelected(); first > 0) {
        QTreeWidgetItem* const item = lvwStdEntries->topLevelItem(first - 1);
        lvwStdEntries->setCurrentItem(item, 0,
                                      QItemSelectionModel::NoUpdate); // the keyboard continues from here
        lvwStdEntries->scrollToItem(item);
    }
}

void frmStdList::edit(void (StandardRows::*operation)()) {
    takeSelection();
    const std::vector<std::string> before = keys();
    (m_rows.*operation)();
    showRows();
    if (keys() != before) {
        SaveStdList();
    }
}

void frmStdList::cmdDelete_Click() {
    if (m_rows.count() > 0) {
        edit(&StandardRows::removeSelected);
    } else if (m_reading.mayBeStored()) {
        SaveStdList(); // an empty list, even if another one is stored meanwhile
    }
}

void frmStdList::cmdInsert_Click() {
    takeSelection();
    const int insertionPoint = std::max(m_rows.firstSelected(), 1);
    if (!m_reading.mayBeStored()) {
        FillStdList(); // the database may be there again
        if (!m_reading.mayBeStored()) {
            return;
        }
    }
    const int countBefore = m_rows.count();
    if (!m_addStandard()) {
        return;
    }
    FillStdList();
    if (!m_reading.mayBeStoredAfterInsert()) {
        return;
    }
    // A standard that is in the list already, or that the database cannot read, got no row that could be
    // moved.
    if (m_rows.count() > countBefore) {
        m_rows.insertLastAt(insertionPoint);
        showRows();
    }
    SaveStdList();
    if (const QString problem = insertNote(countBefore); !problem.isEmpty()) {
        note(problem);
    }
}

} // namespace ocuva
