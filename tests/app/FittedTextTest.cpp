// What the status bar's panels do with texts that are longer than they are.

#include "app/FittedText.h"

#include "tests/support/WindowRig.h"

using namespace ocuva;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const QString live = QStringLiteral("Live 25.0 frames/s   1:2   400x");
const QString state = live + QStringLiteral("   calibrated elsewhere: -12000, 20500 away");

QStringList linesIn(const QString& text, int width, int height) {
    return fittedText(text, QApplication::font(), {width, height}).lines;
}

struct NarrowPanel : WindowRig {
    void SetUp() override {
        start();
        QCoreApplication::processEvents();
    }
    StatusPanel& info() { return *window().sbMain->panel(QStringLiteral("Info")); }
};

} // namespace

TEST(FittedText, KeepsItsSizeWhereItFitsOnOneLine) {
    const FittedText fitted = fittedText(live, QApplication::font(), {2000, 20});
    EXPECT_EQ(fitted.font, QApplication::font());
    EXPECT_EQ(fitted.lines, QStringList{live});
}

TEST(FittedText, BreaksBetweenItsPartsAndGetsSmallerBeforeItIsCut) {
    const QFont font = QApplication::font();
    const int width = QFontMetrics(font).horizontalAdvance(live) + 20;
    const FittedText fitted = fittedText(state, font, {width, heightOfTwoLines(font)});
    EXPECT_TRUE(fitted.isWhole);
    EXPECT_EQ(fitted.lines, (QStringList{live, QStringLiteral("calibrated elsewhere: -12000, 20500 away")}));
    EXPECT_LT(fitted.font.pointSizeF(), font.pointSizeF());
    EXPECT_GE(fitted.font.pointSizeF(), font.pointSizeF() * smallestText - 0.01);
}

TEST(FittedText, BreaksBetweenWordsWhereItHasNoParts) {
    const QString text = QStringLiteral("Nothing is kept: Transport endpoint is not connected");
    const QStringList lines =
        linesIn(text, QFontMetrics(QApplication::font()).horizontalAdvance(text) * 6 / 10,
                heightOfTwoLines(QApplication::font()));
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines.join(u' '), text);
}

TEST(FittedText, EndsInAnEllipsisAsALastResort) {
    const FittedText fitted = fittedText(state, QApplication::font(), {60, 12});
    EXPECT_FALSE(fitted.isWhole);
    ASSERT_EQ(fitted.lines.size(), 1);
    EXPECT_TRUE(fitted.lines.front().endsWith(QChar(0x2026)));
}

TEST(FittedText, HasNoLineThatIsWiderThanItsRoom) {
    for (int width = 40; width < 900; width += 7) {
        const FittedText fitted = fittedText(state, QApplication::font(), {width, 26});
        for (const QString& line : fitted.lines) {
            EXPECT_LE(QFontMetrics(fitted.font).horizontalAdvance(line), width) << line.toStdString();
        }
        EXPECT_LE(static_cast<int>(fitted.lines.size()) * QFontMetrics(fitted.font).height(),
                  std::max(26, QFontMetrics(fitted.font).height()));
    }
}

TEST_F(NarrowPanel, OfTheInitialWindowShowsEachOfItsLongTextsCompletely) {
    for (const char* text :
         {"Live 25.0 frames/s   1:2   400x   calibrated elsewhere: -5000, -1000 away",
          "Still   The picture is old: moved by -1600, -1200",
          "Still   Nothing is kept: No space left on device",
          "Still   Nothing is kept: Read-only file system", "Live   Z -2147483000 is out of reach",
          "stretched 1:1.6 x 1:2   calibrated at another magnification",
          "Picture Video.tif   calibration moved by -5000, -1000", "Picture   Live (F7) before a move"}) {
        EXPECT_TRUE(info().hasRoomFor(QString::fromLatin1(text))) << text << " in " << info().width();
    }
}
