#include "standards/StandardText.h"

#include <QString>

#include <gtest/gtest.h>

using namespace ocuva;

TEST(StandardText, InsideTheDirectoryIsTheBareFileNameWithoutRegardToCase) {
    EXPECT_EQ(standardText("C:\\Tarn\\Std\\Quartz.std", "C:\\TARN\\std"), "Quartz");
    EXPECT_EQ(standardText("/std/sub/Albite.std", "/std"), "sub/Albite");
}

TEST(StandardText, OutsideTheDirectoryOrWithoutOneIsTheFullName) {
    EXPECT_EQ(standardText("/other/Quartz.std", "/std"), "/other/Quartz.std");
    EXPECT_EQ(standardText("/std/Quartz.std", ""), "/std/Quartz.std");
    EXPECT_EQ(standardText("/st", "/std"), "/st");
}

TEST(StandardText, CutsFourCharactersBlindlyAndNeverMoreThanThereAre) {
    EXPECT_EQ(standardText("/std/Quartz.standard", "/std"), "Quartz.stan");
    EXPECT_EQ(standardText("/std/abc", "/std"), "/std/abc");
    EXPECT_EQ(standardText("/std/abcd", "/std"), "");
    EXPECT_EQ(standardText("/std", "/std"), "/std");
}

TEST(StandardText, ComparesLettersOfEveryLanguageWithoutRegardToCase) {
    const auto hostText = [](const QString& text) { return text.toLocal8Bit().toStdString(); };
    EXPECT_EQ(standardText(hostText(QStringLiteral("C:\\PR\u00c4PARATE\\G\u00f6thit.std")),
                           hostText(QStringLiteral("c:\\Pr\u00e4parate"))),
              hostText(QStringLiteral("G\u00f6thit")));
}
