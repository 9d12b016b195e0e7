#include "platform/WindowPresence.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace ocuva {
namespace {

TEST(WindowPresence, FollowsAWindowThroughShowMinimiseAndHide) {
    QWidget window;
    EXPECT_EQ(presenceOf(window), WindowPresence::Hidden);
    window.show();
    EXPECT_EQ(presenceOf(window), WindowPresence::Shown);
    window.showMinimized();
    EXPECT_EQ(presenceOf(window), WindowPresence::Iconic);
    window.showNormal();
    EXPECT_EQ(presenceOf(window), WindowPresence::Shown);
    window.hide();
    EXPECT_EQ(presenceOf(window), WindowPresence::Hidden);
}

} // namespace
} // namespace ocuva
