#include "controls/FileFilter.h"

#include <gtest/gtest.h>

using namespace ocuva;

TEST(FileFilter, HasTheTextAndTheExtensionOfEachKind) {
    const QList<FileKind> kinds = fileKinds(QStringLiteral("TIFF (*.tif):*.tif|BMP (*.bmp):*.bmp"));
    EXPECT_EQ(kinds, (QList<FileKind>{{QStringLiteral("TIFF (*.tif)"), QStringLiteral("tif")},
                                      {QStringLiteral("BMP (*.bmp)"), QStringLiteral("bmp")}}));
}

TEST(FileFilter, AnExtensionMayHaveADotOfItsOwn) {
    EXPECT_EQ(fileKinds(QStringLiteral("tar.gz (*.tar.gz):*.tar.gz")).front().extension,
              QStringLiteral("tar.gz"));
}

TEST(FileFilter, OfOneKindNeedsNoBar) {
    EXPECT_EQ(fileKinds(QStringLiteral("Standard (*.std):*.std")),
              (QList<FileKind>{{QStringLiteral("Standard (*.std)"), QStringLiteral("std")}}));
}
