// The icons, painted to images and looked at.

#include "app/toolbar/IconArt.h"
#include "app/toolbar/ImageList.h"
#include "app/toolbar/MainToolbar.h"
#include "app/toolbar/ToolbarButtons.h"
#include "app/toolbar/VectorIcon.h"

#include <QApplication>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

using namespace ocuva;

namespace {

QPalette lightPalette() { return QPalette(QColor(240, 240, 240), QColor(240, 240, 240)); }
QPalette darkPalette() { return QPalette(QColor(45, 45, 45), QColor(45, 45, 45)); }

std::vector<QString> buttonKeys() {
    std::vector<QString> keys;
    for (const ToolbarButton& button : commandButtons()) {
        if (button.style != ButtonStyle::Separator) {
            keys.emplace_back(button.key);
        }
    }
    return keys;
}

double luminance(const QColor& colour) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double one = luminance(a);
    const double other = luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

// The strongest contrast to the ground that at least 15 pixels in a thousand reach.
double shownContrast(const QString& key, const QPalette& palette, IconLook look, int sizePx) {
    const QColor ground = palette.color(QPalette::Button);
    QImage shown(sizePx, sizePx, QImage::Format_RGB32);
    shown.fill(ground);
    QPainter(&shown).drawImage(0, 0, drawIcon(key, false, inkFor(palette, look), sizePx));
    std::vector<double> contrasts;
    for (int y = 0; y < sizePx; ++y) {
        for (int x = 0; x < sizePx; ++x) {
            contrasts.push_back(contrast(shown.pixelColor(x, y), ground));
        }
    }
    std::sort(contrasts.begin(), contrasts.end(), std::greater<>());
    return contrasts.at(contrasts.size() * 15 / 1000);
}

int redPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            count += c.alpha() > 200 && c.red() > 180 && c.red() > 2 * c.green() ? 1 : 0;
        }
    }
    return count;
}

// Pixels that are neither fully there nor fully absent, along a straight line of the icon's middle row.
int blurredEdges(const QImage& image, int y) {
    int count = 0;
    for (int x = 0; x < image.width(); ++x) {
        const int alpha = image.pixelColor(x, y).alpha();
        count += alpha > 40 && alpha < 215 ? 1 : 0;
    }
    return count;
}

} // namespace

TEST(Icons, EveryButtonHasADrawingThatFillsItsSquareWithoutTouchingTheRim) {
    for (const QString& key : buttonKeys()) {
        for (const int sizePx : {16, 24, 40, 48, 80}) {
            const QImage image = drawIcon(key, true, inkFor(lightPalette(), IconLook::Normal), sizePx);
            QRect drawn;
            for (int y = 0; y < sizePx; ++y) {
                for (int x = 0; x < sizePx; ++x) {
                    if (image.pixelColor(x, y).alpha() > 30) {
                        drawn |= QRect(x, y, 1, 1);
                    }
                }
            }
            EXPECT_GE(std::max(drawn.width(), drawn.height()), sizePx * 7 / 10)
                << key.toStdString() << sizePx;
            EXPECT_GE(std::min(drawn.width(), drawn.height()), sizePx / 2) << key.toStdString() << sizePx;
            EXPECT_TRUE(image.rect().contains(drawn));
            EXPECT_NEAR(drawn.center().x(), sizePx / 2.0, sizePx * 0.1) << key.toStdString() << sizePx;
            EXPECT_NEAR(drawn.center().y(), sizePx / 2.0, sizePx * 0.1) << key.toStdString() << sizePx;
        }
    }
}

TEST(Icons, NoTwoButtonsLookAlike) {
    const std::vector<QString> keys = buttonKeys();
    const IconInk ink = inkFor(lightPalette(), IconLook::Normal);
    for (std::size_t a = 0; a < keys.size(); ++a) {
        for (std::size_t b = a + 1; b < keys.size(); ++b) {
            EXPECT_NE(drawIcon(keys[a], false, ink, 24), drawIcon(keys[b], false, ink, 24));
        }
    }
}

TEST(Icons, NormalHotAndDisabledDiffer) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        for (const QString& key : buttonKeys()) {
            const QImage normal = drawIcon(key, false, inkFor(palette, IconLook::Normal), 24);
            const QImage hot = drawIcon(key, false, inkFor(palette, IconLook::Hot), 24);
            const QImage disabled = drawIcon(key, false, inkFor(palette, IconLook::Disabled), 24);
            EXPECT_NE(normal, hot) << key.toStdString();
            EXPECT_NE(normal, disabled) << key.toStdString();
            EXPECT_NE(hot, disabled) << key.toStdString();
        }
    }
}

TEST(Icons, ActiveFunctionsHaveAnImageOfTheirOwnInEveryLook) {
    for (const char* const key : {"Acq", "Zoom", "Cross", "Grid"}) {
        for (const IconLook look : {IconLook::Normal, IconLook::Hot, IconLook::Disabled}) {
            const IconInk ink = inkFor(lightPalette(), look);
            EXPECT_NE(drawIcon(QString::fromLatin1(key), true, ink, 24),
                      drawIcon(QString::fromLatin1(key), false, ink, 24))
                << key;
        }
    }
}

TEST(Icons, TheLampOfTheLiveButtonIsRedOnlyWhileLive) {
    const auto acq = QStringLiteral("Acq");
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        EXPECT_GE(redPixels(drawIcon(acq, true, inkFor(palette, IconLook::Normal), 24)), 20);
        EXPECT_EQ(redPixels(drawIcon(acq, false, inkFor(palette, IconLook::Normal), 24)), 0);
        EXPECT_EQ(redPixels(drawIcon(acq, true, inkFor(palette, IconLook::Disabled), 24)), 0);
    }
}

TEST(Icons, TheyStandOutFromLightAndDarkBars) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        for (const QString& key : buttonKeys()) {
            EXPECT_GE(shownContrast(key, palette, IconLook::Normal, 24), 7.0) << key.toStdString();
            EXPECT_GE(shownContrast(key, palette, IconLook::Hot, 24), 4.5) << key.toStdString();
            const double disabled = shownContrast(key, palette, IconLook::Disabled, 24);
            EXPECT_GE(disabled, 2.0) << key.toStdString() << " is still legible";
            EXPECT_LE(disabled, 4.5) << key.toStdString() << " looks greyed";
        }
    }
}

TEST(Icons, StraightEdgesFallBetweenPixelsAtEverySize) {
    for (const int sizePx : {24, 40, 48, 80}) {
        const QImage grid =
            drawIcon(QStringLiteral("Grid"), false, inkFor(lightPalette(), IconLook::Normal), sizePx);
        EXPECT_EQ(blurredEdges(grid, sizePx / 2), 0) << sizePx;
    }
}

TEST(Icons, AtRatioTwoTheyAreDrawnWithTwiceThePixels) {
    const ImageList list(smallIconPx, IconLook::Normal);
    const QIcon icon = list.image(QStringLiteral("Zoom"), false);
    const QPixmap fine = icon.pixmap(QSize(24, 24), 2.0);
    EXPECT_EQ(fine.size(), QSize(48, 48));
    EXPECT_EQ(fine.devicePixelRatio(), 2.0);
    EXPECT_EQ(fine.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied).pixelColor(20, 6),
              drawIcon(QStringLiteral("Zoom"), false, inkFor(QApplication::palette(), IconLook::Normal), 48)
                  .pixelColor(20, 6));
    const QImage enlarged = icon.pixmap(QSize(24, 24), 1.0).toImage().scaled(48, 48);
    EXPECT_NE(fine.toImage().convertToFormat(QImage::Format_ARGB32),
              enlarged.convertToFormat(QImage::Format_ARGB32));
}

TEST(Icons, TheyFollowTheApplicationsPalette) {
    const QPalette before = QApplication::palette();
    const QIcon icon = ImageList(smallIconPx, IconLook::Normal).image(QStringLiteral("Save"), false);
    QApplication::setPalette(lightPalette());
    const QColor onLight = icon.pixmap(QSize(24, 24), 1.0).toImage().pixelColor(4, 12);
    QApplication::setPalette(darkPalette());
    const QColor onDark = icon.pixmap(QSize(24, 24), 1.0).toImage().pixelColor(4, 12);
    QApplication::setPalette(before);
    EXPECT_LT(onLight.lightness(), 80);
    EXPECT_GT(onDark.lightness(), 180);
}

TEST(Icons, AnUnknownKeyOrAnImpossibleSizeIsEmptyNotAnError) {
    const QImage image =
        drawIcon(QStringLiteral("Print"), false, inkFor(lightPalette(), IconLook::Normal), 0);
    EXPECT_EQ(image.size(), QSize(1, 1));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_TRUE(ImageList(24, IconLook::Hot).image(QStringLiteral("Print"), false).isNull());
}

TEST(Icons, TheProgramsEmblemIsDrawnAtEverySize) {
    const QIcon icon = applicationIcon();
    EXPECT_FALSE(icon.isNull());
    for (const int sizePx : {16, 32, 64, 256}) {
        const QImage image = icon.pixmap(QSize(sizePx, sizePx), 1.0).toImage();
        EXPECT_EQ(image.width(), sizePx);
        EXPECT_EQ(image.pixelColor(sizePx / 2, sizePx / 2).alpha(), 255);
        EXPECT_LT(image.pixelColor(0, 0).alpha(), 60);
    }
}

TEST(ImageLists, TheSettingPicksSmallForZeroAndLargeForAnythingElse) {
    EXPECT_EQ(imageListItem(0), 0U);
    for (const Long value : {1, -1, 2, 7000}) {
        EXPECT_EQ(imageListItem(value), 1U);
    }
    const ToolbarImageLists lists;
    for (const ImageListArray* list : {&lists.ilTbImage, &lists.ilTbHot, &lists.ilTbDisabled}) {
        EXPECT_EQ(list->at(0).size(), smallIconPx);
        EXPECT_EQ(list->at(1).size(), largeIconPx);
    }
}

TEST(ImageLists, TheBarShowsEachListForItsPurposeAndGrowsWithTheLargeOnes) {
    const ToolbarImageLists lists;
    MainToolbar bar(commandButtons());
    const int smallHeight = bar.sizeHint().height();
    bar.setImageLists(lists.ilTbImage[1], lists.ilTbHot[1], lists.ilTbDisabled[1]);
    EXPECT_GT(bar.sizeHint().height(), smallHeight + 10);
    EXPECT_EQ(bar.iconSize(), QSize(largeIconPx, largeIconPx));

    const QIcon icon = bar.button(QStringLiteral("Grid"))->icon();
    const auto shown = [&](QIcon::Mode mode, QIcon::State state) {
        return icon.pixmap(QSize(40, 40), 1.0, mode, state).toImage();
    };
    const auto listed = [](const ImageList& list, bool on) {
        return list.image(QStringLiteral("Grid"), on).pixmap(QSize(40, 40), 1.0).toImage();
    };
    EXPECT_EQ(shown(QIcon::Normal, QIcon::Off), listed(lists.ilTbImage[1], false));
    EXPECT_EQ(shown(QIcon::Normal, QIcon::On), listed(lists.ilTbImage[1], true));
    EXPECT_EQ(shown(QIcon::Active, QIcon::Off), listed(lists.ilTbHot[1], false));
    EXPECT_EQ(shown(QIcon::Active, QIcon::On), listed(lists.ilTbHot[1], true));
    EXPECT_EQ(shown(QIcon::Disabled, QIcon::Off), listed(lists.ilTbDisabled[1], false));
    EXPECT_EQ(shown(QIcon::Disabled, QIcon::On), listed(lists.ilTbDisabled[1], true));
}

TEST(ImageLists, ALargeBarKeepsItsValuesWhenTheListsChange) {
    const ToolbarImageLists lists;
    MainToolbar bar(commandButtons());
    bar.setValue(QStringLiteral("Acq"), true);
    bar.setImageLists(lists.ilTbImage[1], lists.ilTbHot[1], lists.ilTbDisabled[1]);
    EXPECT_TRUE(bar.value(QStringLiteral("Acq")));
    EXPECT_EQ(bar.button(QStringLiteral("Standard"))->toolTip(), QString());
}
