// Shift+drag and Alt+drag on the bar.

#include "ToolbarRig.h"

using namespace ocuva;

namespace {

// Presses an item and takes the mouse to a place of the bar, without letting go. Places are the bar's.
QWidget* pickUp(ToolbarRig& rig, const char* key, Qt::KeyboardModifiers keys, QPoint to) {
    QWidget* const item = rig.item(key);
    const QPoint from = item->rect().center();
    QTest::mousePress(item, Qt::LeftButton, keys, from);
    const QPoint target = item->mapFrom(&rig.bar, to);
    for (const QPoint step : {(from + target) / 2, target}) {
        QMouseEvent move(QEvent::MouseMove, step, item->mapToGlobal(step), Qt::NoButton, Qt::LeftButton,
                         keys);
        QApplication::sendEvent(item, &move);
    }
    return item;
}

void dragTo(ToolbarRig& rig, const char* key, Qt::KeyboardModifiers keys, QPoint to) {
    QWidget* const item = pickUp(rig, key, keys, to);
    QTest::mouseRelease(item, Qt::LeftButton, keys, item->mapFrom(&rig.bar, to));
    ToolbarRig::settle();
}

QPoint leftHalfOf(const ToolbarRig& rig, const char* key) {
    const QRect place = rig.item(key)->geometry();
    return {place.left() + place.width() / 4, place.center().y()};
}

QPoint rightHalfOf(const ToolbarRig& rig, const char* key) {
    const QRect place = rig.item(key)->geometry();
    return {place.right() - place.width() / 4, place.center().y()};
}

QWidget* mark(const ToolbarRig& rig) { return rig.bar.findChild<QWidget*>(text("insertionMark")); }

} // namespace

TEST(ToolbarDrag, ShiftOrAltDragMovesAButtonAlongTheBar) {
    for (const Qt::KeyboardModifier key : {Qt::ShiftModifier, Qt::AltModifier}) {
        ToolbarRig rig;
        dragTo(rig, "Save", key, leftHalfOf(rig, "Grid"));
        EXPECT_EQ(rig.layout(), "Acq,Sep1,Zoom,Cross,Save,Grid,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4");
        EXPECT_EQ(rig.customizations, 1);
        EXPECT_TRUE(rig.clicks.empty());
        EXPECT_LT(rig.button("Cross")->x(), rig.button("Save")->x());
    }
}

TEST(ToolbarDrag, TheHalfOfTheButtonUnderThePointerDecidesTheSide) {
    ToolbarRig rig;
    dragTo(rig, "Setup", Qt::ShiftModifier, rightHalfOf(rig, "Save"));
    EXPECT_EQ(rig.layout(), "Save,Setup,Acq,Sep1,Zoom,Cross,Grid,Sep2,Stage,Standard,Focus,Sep3,Sep4");
}

TEST(ToolbarDrag, BehindTheLastItemTheButtonGoesToTheEnd) {
    ToolbarRig rig;
    dragTo(rig, "Save", Qt::ShiftModifier, rig.emptyPlace());
    EXPECT_EQ(rig.layout(), "Acq,Sep1,Zoom,Cross,Grid,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4,Save");
}

TEST(ToolbarDrag, InAMirroredBarSidesAreMirroredToo) {
    ToolbarRig rig;
    rig.bar.setLayoutDirection(Qt::RightToLeft);
    ToolbarRig::settle();
    dragTo(rig, "Save", Qt::ShiftModifier, leftHalfOf(rig, "Acq"));
    EXPECT_EQ(rig.layout(), "Acq,Save,Sep1,Zoom,Cross,Grid,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4");
}

TEST(ToolbarDrag, InABarTooNarrowTheButtonGoesBehindTheLastOneSeen) {
    ToolbarRig rig;
    rig.setWidth(rig.button("Stage")->geometry().center().x());
    ToolbarRig::settle();
    ASSERT_TRUE(rig.button("Cross")->isVisible());
    ASSERT_FALSE(rig.button("Stage")->isVisible());
    QString lastSeen;
    for (const QString& key : rig.bar.buttonLayout().keys()) {
        if (rig.bar.findChild<QWidget*>(key, Qt::FindDirectChildrenOnly)->isVisible()) {
            lastSeen = key;
        }
    }
    dragTo(rig, "Save", Qt::ShiftModifier, {rig.bar.width() - 2, rig.bar.height() / 2});
    const QStringList keys = rig.bar.buttonLayout().keys();
    EXPECT_EQ(keys.value(keys.indexOf(text("Save")) - 1), lastSeen);
    EXPECT_NE(keys.last(), text("Save"));
}

TEST(ToolbarDrag, OffTheBarTheButtonIsRemoved) {
    ToolbarRig rig;
    dragTo(rig, "Cross", Qt::ShiftModifier, {100, rig.bar.height() + 60});
    EXPECT_EQ(rig.layout(), "Save,Acq,Sep1,Zoom,Grid,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4");
    EXPECT_EQ(rig.button("Cross"), nullptr);
    EXPECT_EQ(rig.customizations, 1);
}

TEST(ToolbarDrag, SeparatorsAndDisabledButtonsCanBeDraggedAsWell) {
    ToolbarRig rig;
    rig.bar.setEnabled(text("Focus"), false);
    dragTo(rig, "Sep1", Qt::ShiftModifier, {100, rig.bar.height() + 60});
    dragTo(rig, "Focus", Qt::ShiftModifier, leftHalfOf(rig, "Save"));
    EXPECT_EQ(rig.layout(), "Focus,Save,Acq,Zoom,Cross,Grid,Sep2,Stage,Standard,Sep3,Setup,Sep4");
    EXPECT_FALSE(rig.button("Focus")->isEnabled());
}

TEST(ToolbarDrag, AMarkShowsWhereTheButtonWouldGo) {
    ToolbarRig rig;
    ASSERT_FALSE(mark(rig)->isVisible());
    QWidget* const item = pickUp(rig, "Save", Qt::ShiftModifier, leftHalfOf(rig, "Grid"));
    EXPECT_TRUE(mark(rig)->isVisible());
    EXPECT_NEAR(mark(rig)->geometry().center().x(), rig.button("Grid")->x(), 3);
    QTest::mouseRelease(item, Qt::LeftButton, Qt::ShiftModifier, item->mapFrom(&rig.bar, QPoint(0, 200)));
    EXPECT_FALSE(mark(rig)->isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(ToolbarDrag, LetGoWhereItCameFromNothingChanges) {
    ToolbarRig rig;
    dragTo(rig, "Acq", Qt::ShiftModifier, rightHalfOf(rig, "Save"));
    EXPECT_EQ(rig.layout(), designText);
    EXPECT_EQ(rig.customizations, 0);
}

TEST(ToolbarDrag, EscapeLeavesEverythingAsItWas) {
    ToolbarRig rig;
    QWidget* const item = pickUp(rig, "Acq", Qt::ShiftModifier, {100, 200});
    QTest::keyClick(&rig.window, Qt::Key_Escape);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QTest::mouseRelease(item, Qt::LeftButton, Qt::ShiftModifier, {100, 200});
    EXPECT_EQ(rig.layout(), designText);
    EXPECT_TRUE(rig.clicks.empty());
    dragTo(rig, "Acq", Qt::ShiftModifier, {100, 200});
    EXPECT_EQ(rig.button("Acq"), nullptr) << "the next drag works again";
}

TEST(ToolbarDrag, WithoutAKeyHeldADragIsNoCustomization) {
    ToolbarRig rig;
    dragTo(rig, "Save", {}, leftHalfOf(rig, "Grid"));
    dragTo(rig, "Save", {}, {100, 200});
    EXPECT_EQ(rig.layout(), designText);
}

TEST(ToolbarDrag, AShiftClickThatDoesNotMoveChangesNothingAndClicksNothing) {
    ToolbarRig rig;
    QTest::mouseClick(rig.button("Save"), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(rig.layout(), designText);
    EXPECT_TRUE(rig.clicks.empty());
}

TEST(ToolbarDrag, ALayoutRestoredInTheMiddleEndsTheDrag) {
    ToolbarRig rig;
    QWidget* const item = pickUp(rig, "Save", Qt::ShiftModifier, leftHalfOf(rig, "Grid"));
    ASSERT_TRUE(rig.bar.restoreLayout(text("Grid,Save,Acq")));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QTest::mouseRelease(item, Qt::LeftButton, Qt::ShiftModifier, {100, 200});
    ToolbarRig::settle();
    EXPECT_EQ(rig.layout(), "Grid,Save,Acq");
}
