#include "app/help/HelpWindow.h"

#include "app/toolbar/VectorIcon.h"
#include "base/Product.h"
#include "controls/WindowPlace.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

namespace ocuva {

namespace {

constexpr int deepestInContents = 3;
constexpr QSize firstSize{960, 680};
constexpr QSize smallestBeside{640, 380}; // a page that is smaller is better laid over the image
constexpr int contentsWidthPx = 250;
} // namespace

HelpWindow::HelpWindow(const QDir& manual, const std::vector<KeyRow>& keys, const QWidget* beside)
    : view(new HelpView)
    , contents(new QTreeWidget)
    , txtSearch(new QLineEdit)
    , lblFound(new QLabel) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(tr("%1 - Manual").arg(QString::fromLatin1(productTitle)));
    setWindowIcon(applicationIcon());
    view->setObjectName(QStringLiteral("txtManual"));
    contents->setObjectName(QStringLiteral("tvwContents"));
    contents->setAccessibleName(tr("Contents"));
    contents->setHeaderHidden(true);
    contents->setFrameShape(QFrame::NoFrame);
    contents->setUniformRowHeights(true);

    auto* const halves = new QSplitter;
    halves->addWidget(contents);
    halves->addWidget(view);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    halves->setSizes({contentsWidthPx, firstSize.width() - contentsWidthPx});
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(makeSearchRow());
    rows->addWidget(halves, 1);
    makeKeys();

    view->showText(helpText(manual, keys), manual);
    fillContents();
    connect(contents, &QTreeWidget::itemActivated, view, [this] { view->setFocus(); });
    connect(contents, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item != nullptr) {
            view->scrollToPosition(item->data(0, Qt::UserRole).toInt());
        }
    });
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, &HelpWindow::followView);
    resize(firstSize);
    new WindowPlace(*this, besideItsOwner(beside, smallestBeside));
    view->setFocus();
}

QWidget* HelpWindow::makeSearchRow() {
    auto* const row = new QWidget;
    auto* const fields = new QHBoxLayout(row);
    fields->setContentsMargins(8, 6, 8, 6);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setPlaceholderText(tr("Search the manual (Ctrl+F)"));
    txtSearch->setAccessibleName(tr("Search the manual"));
    txtSearch->setClearButtonEnabled(true);
    lblFound->setObjectName(QStringLiteral("lblFound"));
    lblFound->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000 of 000")));
    fields->addWidget(txtSearch, 1);
    fields->addWidget(makeStep(Qt::UpArrow, tr("Previous place (Shift+F3)"), false));
    fields->addWidget(makeStep(Qt::DownArrow, tr("Next place (F3)"), true));
    fields->addWidget(lblFound);
    connect(txtSearch, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(txtSearch, &QLineEdit::returnPressed, this, [this] { step(true); });
    return row;
}

QToolButton* HelpWindow::makeStep(Qt::ArrowType arrow, const QString& name, bool forward) {
    auto* const button = new QToolButton;
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setToolTip(name);
    button->setAccessibleName(name);
    connect(button, &QToolButton::clicked, this, [this, forward] { step(forward); });
    return button;
}

void HelpWindow::makeKeys() {
    const auto key = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    key(QKeySequence(Qt::CTRL | Qt::Key_F), [this] {
        txtSearch->setFocus();
        txtSearch->selectAll();
    });
    key(QKeySequence(Qt::Key_F3), [this] { step(true); });
    key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { step(false); });
    key(QKeySequence(Qt::Key_Escape), [this] { escape(); });
    key(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { close(); });
}

void HelpWindow::fillContents() {
    std::vector<QTreeWidgetItem*> above(deepestInContents + 1, nullptr);
    above[0] = contents->invisibleRootItem();
    QTreeWidgetItem* last = nullptr;
    for (const Heading& heading : view->headings()) {
        if (heading.level <= deepestInContents) {
            // A text that leaves out a level hangs what follows under the next level above.
            auto level = static_cast<std::size_t>(heading.level);
            QTreeWidgetItem* parent = nullptr;
            for (std::size_t up = level; parent == nullptr; --up) {
                parent = above[up - 1];
            }
            last = new QTreeWidgetItem(parent, {heading.text});
            last->setData(0, Qt::UserRole, heading.position);
            last->setSizeHint(0, QSize(0, fontMetrics().height() * 3 / 2));
            above[level] = last;
            std::fill(above.begin() + static_cast<std::ptrdiff_t>(level) + 1, above.end(), nullptr);
        }
        m_items.push_back(last);
    }
    contents->expandToDepth(0);
}

void HelpWindow::followView() {
    const int index = view->headingAtTop();
    if (index < 0 || m_items.empty()) {
        return;
    }
    const QSignalBlocker onlyShown(contents);
    QTreeWidgetItem* const item = m_items.at(static_cast<std::size_t>(index));
    contents->setCurrentItem(item);
    contents->scrollToItem(item);
}

void HelpWindow::showChapter(const QString& title) {
    for (const Heading& heading : view->headings()) {
        if (heading.text == title) {
            view->scrollToPosition(heading.position);
            return;
        }
    }
}

void HelpWindow::search() {
    view->search(txtSearch->text());
    showFound();
}

void HelpWindow::step(bool forward) {
    view->step(forward);
    showFound();
}

void HelpWindow::showFound() {
    if (txtSearch->text().isEmpty()) {
        lblFound->clear();
    } else if (view->places() == 0) {
        lblFound->setText(tr("Not found"));
    } else {
        lblFound->setText(tr("%1 of %2").arg(view->shownPlace() + 1).arg(view->places()));
    }
}

void HelpWindow::escape() {
    if (txtSearch->text().isEmpty()) {
        close();
    } else {
        txtSearch->clear();
        view->setFocus();
    }
}

} // namespace ocuva
