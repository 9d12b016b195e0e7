#include "app/help/HelpPictures.h"
#include "app/help/HelpWindow.h"
#include "controls/WindowPlace.h"
#include "tests/support/OwnRegistry.h"
#include "tests/support/UsersHand.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>

#include <gmock/gmock.h>

namespace ocuva {

namespace {

struct HelpRig : testing::Test {
    QTemporaryDir place;
    HelpView view;

    HelpRig() {
        emptyRegistry();
        view.resize(600, 300);
        view.show();
    }

    QDir folder() const { return QDir(place.path()); }
    void show(const QString& markdown) { view.showText(markdown, folder()); }
    void picture(const char* name, int width, int height) const {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        ASSERT_TRUE(image.save(folder().filePath(QString::fromLatin1(name))));
    }
    qreal heightOfBlock(int number) const {
        const QTextBlock block = view.document()->findBlockByNumber(number);
        return view.document()->documentLayout()->blockBoundingRect(block).height();
    }
};

using HelpText = HelpRig;
using HelpSearch = HelpRig;
using HelpPicture = HelpRig;
using ManualWindow = HelpRig;

const QString longPage = QStringLiteral("# One\n\n") + QStringLiteral("word\n\n").repeated(100) +
                         QStringLiteral("## Two parts\n\n[back](#one)\n\n") +
                         QStringLiteral("Word\n\n").repeated(100);

} // namespace

TEST_F(HelpText, IsShownFromItsBeginning) {
    show(longPage);
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    EXPECT_EQ(view.headingAtTop(), 0);
}

TEST_F(HelpText, ListsItsHeadingsInOrder) {
    show(longPage);
    const std::vector<Heading> headings = view.headings();
    ASSERT_EQ(headings.size(), 2u);
    EXPECT_EQ(headings[0].level, 1);
    EXPECT_EQ(headings[1].text.toStdString(), "Two parts");
    EXPECT_EQ(headings[1].level, 2);
}

TEST_F(HelpText, BringsAHeadingToTheTop) {
    show(longPage);
    view.scrollToPosition(view.headings()[1].position);
    EXPECT_EQ(view.headingAtTop(), 1);
}

TEST_F(HelpText, FollowsALinkToAHeading) {
    show(longPage);
    view.scrollToPosition(view.headings()[1].position);
    Q_EMIT view.anchorClicked(QUrl(QStringLiteral("#one")));
    EXPECT_EQ(view.headingAtTop(), 0);
    Q_EMIT view.anchorClicked(QUrl(QStringLiteral("#two-parts")));
    EXPECT_EQ(view.headingAtTop(), 1);
}

TEST_F(HelpText, IsReadableAfterAChangeToADarkPalette) {
    show(QStringLiteral("| a | b |\n|---|---|\n| c | d |\n"));
    QPalette dark = view.palette();
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    view.setPalette(dark);
    EXPECT_LT(view.grab().toImage().pixelColor(300, 200).lightness(), 40);
    QTextCursor head(view.document()->findBlockByNumber(1));
    ASSERT_NE(head.currentTable(), nullptr);
    EXPECT_LT(head.currentTable()->cellAt(0, 0).format().background().color().lightness(), 60);
}

TEST_F(HelpSearch, FindsEveryPlaceInAnyLetterCase) {
    show(longPage);
    EXPECT_EQ(view.search(QStringLiteral("wORD")), 200);
    EXPECT_EQ(view.shownPlace(), 0);
    EXPECT_EQ(view.extraSelections().size(), 200);
}

TEST_F(HelpSearch, StepsForwardAndBackAcrossTheEnds) {
    show(longPage);
    view.search(QStringLiteral("word"));
    view.step(false);
    EXPECT_EQ(view.shownPlace(), 199);
    view.step(true);
    EXPECT_EQ(view.shownPlace(), 0);
}

TEST_F(HelpSearch, BeginsAtTheVisibleText) {
    show(longPage);
    view.scrollToPosition(view.headings()[1].position);
    view.search(QStringLiteral("word"));
    EXPECT_EQ(view.shownPlace(), 100);
}

TEST_F(HelpSearch, DoesNothingWithoutAText) {
    show(longPage);
    view.search(QStringLiteral("word"));
    EXPECT_EQ(view.search(QString()), 0);
    view.step(true);
    EXPECT_EQ(view.shownPlace(), -1);
    EXPECT_TRUE(view.extraSelections().empty());
}

TEST_F(HelpPicture, IsNeverWiderThanTheWindow) {
    picture("wide.png", 2000, 1000);
    show(QStringLiteral("![wide](wide.png)\n"));
    const qreal before = heightOfBlock(0);
    EXPECT_LT(before, 301);
    view.resize(300, 300);
    QApplication::processEvents();
    EXPECT_LT(heightOfBlock(0), before * 0.6);
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

TEST_F(HelpPicture, IsNotEnlargedBeyondItsOwnSize) {
    picture("small.png", 40, 30);
    show(QStringLiteral("![small](small.png)\n"));
    EXPECT_NEAR(heightOfBlock(0), 30, 10);
}

TEST_F(HelpPicture, ThatIsMissingShowsItsDescription) {
    HelpPictures pictures;
    pictures.setFolder(folder());
    pictures.setRoom(500);
    QTextDocument text;
    QTextImageFormat format;
    format.setName(QStringLiteral("nowhere.png"));
    format.setProperty(QTextFormat::ImageAltText, QStringLiteral("The window"));
    EXPECT_GT(pictures.intrinsicSize(&text, 0, format).width(), 50);
    QImage paper(500, 60, QImage::Format_RGB32);
    paper.fill(Qt::white);
    const QImage blank = paper;
    QPainter painter(&paper);
    pictures.drawObject(&painter, QRectF(0, 0, 500, 60), &text, 0, format);
    painter.end();
    EXPECT_NE(paper, blank);
}

TEST_F(ManualWindow, ListsChaptersAndSectionsOfTheManual) {
    const HelpWindow window(QDir(QStringLiteral(DOCS_FOLDER)),
                            {{QStringLiteral("F7"), QStringLiteral("Live"), QStringLiteral("View")}});
    ASSERT_EQ(window.contents->topLevelItemCount(), 3);
    EXPECT_GT(window.contents->topLevelItem(0)->childCount(), 3);
    EXPECT_EQ(window.contents->topLevelItem(1)->text(0).toStdString(), "Keys");
    EXPECT_TRUE(window.view->document()->toPlainText().contains(QStringLiteral("F7")));
}

TEST_F(ManualWindow, ShowsTheChapterThatIsChosenInTheContentsAndTheOneThatIsRead) {
    HelpWindow window(QDir(QStringLiteral(DOCS_FOLDER)), {});
    window.show();
    QTreeWidgetItem* const last = window.contents->topLevelItem(2)->child(0);
    window.contents->setCurrentItem(last);
    EXPECT_GT(window.view->verticalScrollBar()->value(), 1000);
    window.view->verticalScrollBar()->setValue(0);
    EXPECT_EQ(window.contents->currentItem(), window.contents->topLevelItem(0));
}

TEST_F(ManualWindow, SaysHowManyPlacesWereFound) {
    HelpWindow window(QDir(QStringLiteral(DOCS_FOLDER)), {});
    window.show();
    window.txtSearch->setText(QStringLiteral("autofocus"));
    EXPECT_TRUE(window.lblFound->text().startsWith(QStringLiteral("1 of ")));
    QTest::keyClick(window.txtSearch, Qt::Key_Return);
    EXPECT_TRUE(window.lblFound->text().startsWith(QStringLiteral("2 of ")));
    window.txtSearch->setText(QStringLiteral("no such word"));
    EXPECT_EQ(window.lblFound->text().toStdString(), "Not found");
    window.txtSearch->clear();
    EXPECT_EQ(window.lblFound->text().toStdString(), "");
}

TEST_F(ManualWindow, ComesBackWhereItWasLeftAndAsLarge) {
    const QRect left(40, 60, 640, 400);
    {
        HelpWindow window(QDir(QStringLiteral(DOCS_FOLDER)), {});
        window.show();
        dragWindow(window, left);
        window.close();
    }
    HelpWindow again(QDir(QStringLiteral(DOCS_FOLDER)), {});
    again.show();
    EXPECT_EQ(QRect(again.pos(), again.size()), left);
}

TEST_F(ManualWindow, LastShownOnAMissingScreenComesBackOnAPresentOne) {
    WindowPlaceStore().save(QStringLiteral("frmHelp"), {QPoint(9000, 7000), QSize(640, 400)});
    HelpWindow window(QDir(QStringLiteral(DOCS_FOLDER)), {});
    window.show();
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
    EXPECT_EQ(window.size(), QSize(640, 400));
}

TEST_F(ManualWindow, NamesItsPartsForScreenReaders) {
    const HelpWindow window(QDir(QStringLiteral(DOCS_FOLDER)), {});
    for (const QWidget* part : {static_cast<QWidget*>(window.view), static_cast<QWidget*>(window.contents),
                                static_cast<QWidget*>(window.txtSearch)}) {
        EXPECT_FALSE(part->accessibleName().isEmpty()) << part->objectName().toStdString();
    }
    for (const QToolButton* step : window.findChildren<QToolButton*>()) {
        if (step->parent() != window.txtSearch) {
            EXPECT_FALSE(step->accessibleName().isEmpty());
        }
    }
}

} // namespace ocuva
