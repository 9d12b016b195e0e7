#include "hosts/common/HostTexts.h"

#include "hostlink/HostArguments.h"

#include <gtest/gtest.h>

namespace hosts {
namespace {

TEST(HostTexts, ATextThatFitsEndsWithANul) {
    char buffer[6] = {'#', '#', '#', '#', '#', '#'};
    EXPECT_EQ(copyText("four", buffer, 5), 4);
    EXPECT_STREQ(buffer, "four");
    EXPECT_EQ(buffer[5], '#');
}

TEST(HostTexts, ATextThatJustFillsItsBufferHasNoNul) {
    char buffer[5] = {'#', '#', '#', '#', '#'};
    EXPECT_EQ(copyText("four", buffer, 4), 4);
    EXPECT_EQ(buffer[4], '#');
}

TEST(HostTexts, ALongerTextIsCut) {
    char buffer[3] = {'#', '#', '#'};
    EXPECT_EQ(copyText("four", buffer, 2), 2);
    EXPECT_EQ(std::string(buffer, 3), "fo#");
}

TEST(HostTexts, NothingIsWrittenToANullBuffer) {
    char buffer[1] = {'#'};
    EXPECT_EQ(copyText("four", buffer, 0), 0);
    EXPECT_EQ(copyText("four", buffer, -7), 0);
    EXPECT_EQ(copyText("four", nullptr, 10), 0);
    EXPECT_EQ(buffer[0], '#');
}

TEST(HostTexts, AMessageKeyIsShownAsItsSentenceAndAnyOtherTextAsItself) {
    EXPECT_NE(messageText("TnOcuvaSelect").find("live image"), std::string::npos);
    EXPECT_EQ(messageText("Save first?"), "Save first?");
}

TEST(HostTexts, WithoutAnOperatorTheAnswerIsTheOneThatChangesLeast) {
    EXPECT_EQ(ocuva::answerOfNobody(TARN_BOX_OK), TARN_ANSWER_OK);
    EXPECT_EQ(ocuva::answerOfNobody(TARN_BOX_OK + TARN_BOX_CRITICAL), TARN_ANSWER_OK);
    EXPECT_EQ(ocuva::answerOfNobody(TARN_BOX_OK_CANCEL + TARN_BOX_CRITICAL), TARN_ANSWER_CANCEL);
    EXPECT_EQ(ocuva::answerOfNobody(TARN_BOX_YES_NO), TARN_ANSWER_NO);
}

} // namespace
} // namespace hosts
