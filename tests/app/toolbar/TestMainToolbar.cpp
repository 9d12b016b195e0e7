// Buttons, values, menus, keyboard, overflow and context menu of the toolbar, with real events.

#include "ToolbarRig.h"
#include "app/toolbar/CustomizeToolbarDialog.h"
#include "app/toolbar/TypeAheadMenu.h"

#include <QContextMenuEvent>

using namespace ocuva;

namespace {

QMenu* contextMenu(ToolbarRig& rig, QWidget* on) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, on->rect().center(),
                            on->mapToGlobal(on->rect().center()));
    QApplication::sendEvent(on, &event);
    return rig.bar.findChild<QMenu*>(text("mnuToolbar"));
}

} // namespace

TEST(MainToolbar, EachButtonHasItsKeyAsNameItsTooltipAndAnAccessibleName) {
    const ToolbarRig rig;
    for (const ToolbarButton& definition : commandButtons()) {
        if (definition.style == ButtonStyle::Separator) {
            continue;
        }
        const QToolButton* const button = rig.bar.button(definition.key);
        ASSERT_NE(button, nullptr) << definition.key.data();
        EXPECT_EQ(button->objectName(), definition.key);
        EXPECT_EQ(button->toolTip(), definition.tooltip);
        EXPECT_EQ(button->accessibleName(), definition.text);
        EXPECT_FALSE(button->icon().isNull());
    }
    EXPECT_EQ(rig.bar.objectName(), text("tbMain"));
    EXPECT_EQ(rig.button("Save")->toolTip(), text("Save the current image to disk"));
}

TEST(MainToolbar, TheButtonsAreInTheDefaultOrderFromLeftToRight) {
    const ToolbarRig rig;
    int left = -1;
    for (const ToolbarButton& definition : commandButtons()) {
        const QWidget* const item = rig.bar.findChild<QWidget*>(definition.key);
        ASSERT_NE(item, nullptr);
        EXPECT_GT(item->x(), left) << definition.key.data();
        left = item->x();
    }
}

TEST(MainToolbar, TheStandardButtonNeverGetsATooltip) {
    ToolbarRig rig;
    rig.bar.setEnabled(text("Standard"), false);
    rig.bar.setEnabled(text("Standard"), true);
    EXPECT_EQ(rig.button("Standard")->toolTip(), QString());
}

TEST(MainToolbar, AClickOnAButtonReportsItsKey) {
    ToolbarRig rig;
    for (const char* const key : {"Save", "Acq", "Zoom", "Cross", "Grid", "Standard", "Focus", "Setup"}) {
        QTest::mouseClick(rig.button(key), Qt::LeftButton);
    }
    // Left of its arrow, the Stage button is an ordinary button.
    QTest::mouseClick(rig.button("Stage"), Qt::LeftButton, {}, {8, rig.bar.height() / 2});
    EXPECT_EQ(rig.clicks, (std::vector<std::string>{"Save", "Acq", "Zoom", "Cross", "Grid", "Standard",
                                                    "Focus", "Setup", "Stage"}));
}

TEST(MainToolbar, ASetValuePressesTheButtonWithoutAClick) {
    ToolbarRig rig;
    for (const char* const key : {"Acq", "Zoom", "Cross", "Grid"}) {
        rig.bar.setValue(text(key), true);
        EXPECT_TRUE(rig.bar.value(text(key)));
        EXPECT_TRUE(rig.button(key)->isChecked());
        rig.bar.setValue(text(key), false);
        EXPECT_FALSE(rig.button(key)->isChecked());
    }
    EXPECT_TRUE(rig.clicks.empty());
}

TEST(MainToolbar, APressedButtonShowsAnotherImage) {
    ToolbarRig rig;
    const QImage released = rig.button("Grid")->grab().toImage();
    rig.bar.setValue(text("Grid"), true);
    EXPECT_NE(rig.button("Grid")->grab().toImage(), released);
}

TEST(MainToolbar, ACheckButtonChangesItsValueOnAClickAndTheProgramMayTakeItBack) {
    ToolbarRig rig;
    QObject::connect(&rig.bar, &MainToolbar::buttonClicked, &rig.bar,
                     [&rig](const QString& key) { rig.bar.setValue(key, false); });
    QTest::mouseClick(rig.button("Acq"), Qt::LeftButton);
    EXPECT_FALSE(rig.button("Acq")->isChecked());
    EXPECT_EQ(rig.clicks.size(), 1U);
}

TEST(MainToolbar, OnlyCheckButtonsStayPressed) {
    ToolbarRig rig;
    rig.bar.setValue(text("Save"), true);
    EXPECT_FALSE(rig.bar.value(text("Save")));
}

TEST(MainToolbar, ADisabledButtonDoesNotReportClicks) {
    ToolbarRig rig;
    rig.bar.setEnabled(text("Acq"), false);
    EXPECT_FALSE(rig.bar.isEnabled(text("Acq")));
    QTest::mouseClick(rig.button("Acq"), Qt::LeftButton);
    EXPECT_TRUE(rig.clicks.empty());
    rig.bar.setEnabled(text("Acq"), true);
    QTest::mouseClick(rig.button("Acq"), Qt::LeftButton);
    EXPECT_EQ(rig.clicks.size(), 1U);
}

TEST(MainToolbar, AKeyThatNamesNoButtonChangesNothing) {
    ToolbarRig rig;
    for (const char* const key : {"", "Print", "Sep1", "save"}) {
        rig.bar.setValue(text(key), true);
        rig.bar.setEnabled(text(key), false);
        EXPECT_FALSE(rig.bar.value(text(key)));
        EXPECT_EQ(rig.button(key), nullptr);
        EXPECT_EQ(rig.bar.buttonMenus(text(key)), nullptr);
    }
    EXPECT_TRUE(rig.bar.isEnabled());
    EXPECT_EQ(rig.layout(), designText);
}

TEST(ButtonMenus, KeepsItsItemsInOrderAndRefusesAKeyTwice) {
    ToolbarRig rig;
    ASSERT_EQ(rig.bar.buttonMenus(text("Save")), nullptr);
    ButtonMenus& menus = *rig.bar.buttonMenus(text("Stage"));
    EXPECT_EQ(menus.count(), 0);
    EXPECT_TRUE(menus.add(text("C:\\Std\\Fe & Ni.std"), text("Fe & Ni")));
    EXPECT_TRUE(menus.add(text("b"), text("Fe & Ni")));
    EXPECT_FALSE(menus.add(text("b"), text("other")));
    EXPECT_FALSE(menus.add(QString(), text("nameless")));
    ASSERT_EQ(menus.count(), 2);
    EXPECT_EQ(menus.key(0), text("C:\\Std\\Fe & Ni.std"));
    EXPECT_EQ(menus.text(0), text("Fe & Ni"));
    EXPECT_EQ(menus.menu()->actions().at(0)->text(), text("Fe && Ni"));
    EXPECT_EQ(menus.key(2), QString());
    menus.clear();
    EXPECT_EQ(menus.count(), 0);
    EXPECT_TRUE(menus.add(text("b"), text("again")));
}

TEST(ButtonMenus, AnEmptyListShowsAGreyedLine) {
    ToolbarRig rig;
    const ButtonMenus& menus = *rig.bar.buttonMenus(text("Stage"));
    ASSERT_EQ(menus.menu()->actions().size(), 1);
    EXPECT_FALSE(menus.menu()->actions().at(0)->isEnabled());
}

TEST(ButtonMenus, TheArrowOpensTheListAndAClickOnAnItemReportsBothKeys) {
    ToolbarRig rig;
    ButtonMenus& menus = *rig.bar.buttonMenus(text("Stage"));
    menus.add(text("first"), text("First standard"));
    menus.add(text("second"), text("Second standard"));
    rig.onNextTurn([&] {
        QWidget* const popup = QApplication::activePopupWidget();
        ASSERT_EQ(popup, menus.menu());
        QTest::mouseClick(popup, Qt::LeftButton, {},
                          menus.menu()->actionGeometry(menus.menu()->actions().at(1)).center());
    });
    QToolButton* const stage = rig.button("Stage");
    QTest::mouseClick(stage, Qt::LeftButton, {}, {stage->width() - 4, stage->height() / 2});
    EXPECT_EQ(rig.menuClicks, std::vector<std::string>{"Stage/second"});
    EXPECT_TRUE(rig.clicks.empty());
}

TEST(ButtonMenus, AClickOnAnItemMayRefillTheList) {
    ToolbarRig rig;
    ButtonMenus& menus = *rig.bar.buttonMenus(text("Stage"));
    menus.add(text("old"), text("Old"));
    QObject::connect(&rig.bar, &MainToolbar::buttonMenuClicked, &rig.bar, [&] {
        menus.clear();
        menus.add(text("new"), text("New"));
    });
    menus.menu()->actions().at(0)->trigger();
    ToolbarRig::settle();
    EXPECT_EQ(rig.menuClicks, std::vector<std::string>{"Stage/old"});
    EXPECT_EQ(menus.key(0), text("new"));
}

TEST(TypeAhead, GoesToTheNextEntryThatBeginsWithTheLetterAndRoundAgain) {
    const QStringList names{text("Apatite"), text("Pyrite"), text("Quartz"), text("pyrope")};
    TypeAhead typeAhead;
    EXPECT_EQ(typeAhead.type(text("p"), 0, 400, names, -1), 1);
    EXPECT_EQ(typeAhead.type(text("P"), 1000, 400, names, 1), 3);
    EXPECT_EQ(typeAhead.type(text("p"), 2000, 400, names, 3), 1);
    EXPECT_EQ(typeAhead.type(text("x"), 3000, 400, names, 1), std::nullopt);
    EXPECT_EQ(typeAhead.type(text("x"), 4000, 400, {}, -1), std::nullopt);
}

TEST(TypeAhead, TakesLettersThatFollowQuicklyAsOneBeginning) {
    const QStringList names{text("Pyrite"), text("Pyrope"), text("Fe 1"), text("Fe 2")};
    TypeAhead typeAhead;
    EXPECT_EQ(typeAhead.type(text("p"), 0, 400, names, -1), 0);
    EXPECT_EQ(typeAhead.type(text("y"), 100, 400, names, 0), 0);
    EXPECT_EQ(typeAhead.type(text("r"), 200, 400, names, 0), 0);
    EXPECT_EQ(typeAhead.type(text("o"), 300, 400, names, 0), 1);
    EXPECT_FALSE(typeAhead.continues(701, 400));
    EXPECT_EQ(typeAhead.type(text("f"), 5000, 400, names, 1), 2);
    EXPECT_EQ(typeAhead.type(text("e"), 5100, 400, names, 2), 2);
    EXPECT_TRUE(typeAhead.continues(5200, 400));
    EXPECT_EQ(typeAhead.type(text(" "), 5200, 400, names, 2), 2);
    EXPECT_EQ(typeAhead.type(text("2"), 5300, 400, names, 2), 3);
}

TEST(TypeAhead, TheSameLetterTypedQuicklyGoesThroughTheEntries) {
    const QStringList names{text("Pyrite"), text("Pyrope"), text("Quartz")};
    TypeAhead typeAhead;
    EXPECT_EQ(typeAhead.type(text("p"), 0, 400, names, -1), 0);
    EXPECT_EQ(typeAhead.type(text("p"), 50, 400, names, 0), 1);
    EXPECT_EQ(typeAhead.type(text("p"), 100, 400, names, 1), 0);
}

TEST(ButtonMenus, TypingTheBeginningOfANameChoosesItAndEnterRunsIt) {
    ToolbarRig rig;
    ButtonMenus& menus = *rig.bar.buttonMenus(text("Stage"));
    for (const char* name : {"Apatite", "Fe & Ni", "Fe 2"}) {
        menus.add(text(name), text(name));
    }
    rig.onNextTurn([&] {
        QTest::keyClicks(menus.menu(), text("fe &"));
        EXPECT_EQ(menus.menu()->activeAction(), menus.menu()->actions().at(1));
        QTest::keyClick(menus.menu(), Qt::Key_Return);
    });
    QToolButton* const stage = rig.button("Stage");
    QTest::mouseClick(stage, Qt::LeftButton, {}, {stage->width() - 4, stage->height() / 2});
    EXPECT_EQ(rig.menuClicks, std::vector<std::string>{"Stage/Fe & Ni"});
}

TEST(ToolbarKeyboard, ArrowsGoFromButtonToButtonAndSpaceAndEnterClick) {
    ToolbarRig rig;
    rig.button("Save")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(rig.button("Save"), Qt::Key_Right);
    EXPECT_TRUE(rig.button("Acq")->hasFocus());
    QTest::keyClick(rig.button("Acq"), Qt::Key_Space);
    QTest::keyClick(rig.button("Acq"), Qt::Key_Return);
    QTest::keyClick(rig.button("Acq"), Qt::Key_End);
    EXPECT_TRUE(rig.button("Setup")->hasFocus());
    QTest::keyClick(rig.button("Setup"), Qt::Key_Right);
    EXPECT_TRUE(rig.button("Setup")->hasFocus());
    QTest::keyClick(rig.button("Setup"), Qt::Key_Home);
    EXPECT_TRUE(rig.button("Save")->hasFocus());
    EXPECT_EQ(rig.clicks, (std::vector<std::string>{"Acq", "Acq"}));
}

TEST(ToolbarKeyboard, TheArrowsSkipWhatIsDisabled) {
    ToolbarRig rig;
    rig.bar.setEnabled(text("Acq"), false);
    rig.button("Save")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(rig.button("Save"), Qt::Key_Right);
    EXPECT_TRUE(rig.button("Zoom")->hasFocus());
}

TEST(ToolbarKeyboard, TabVisitsTheButtonsInTheOrderOfTheBarAlsoAfterAChange) {
    ToolbarRig rig;
    ASSERT_TRUE(rig.bar.restoreLayout(text("Setup,Sep1,Grid,Save")));
    ToolbarRig::settle();
    rig.button("Setup")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(rig.button("Setup"), Qt::Key_Tab);
    EXPECT_TRUE(rig.button("Grid")->hasFocus());
    QTest::keyClick(rig.button("Grid"), Qt::Key_Tab);
    EXPECT_TRUE(rig.button("Save")->hasFocus());
}

TEST(ToolbarKeyboard, DownOpensTheDropDown) {
    ToolbarRig rig;
    rig.bar.buttonMenus(text("Stage"))->add(text("only"), text("Only"));
    rig.onNextTurn([] {
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    });
    QTest::keyClick(rig.button("Stage"), Qt::Key_Down);
    EXPECT_EQ(rig.menuClicks, std::vector<std::string>{"Stage/only"});
}

TEST(ToolbarOverflow, ABarTooNarrowShowsTheChevronAndItsMenuHasTheRest) {
    ToolbarRig rig;
    auto* const chevron = rig.bar.findChild<QToolButton*>(text("qt_toolbar_ext_button"));
    ASSERT_NE(chevron, nullptr);
    EXPECT_FALSE(chevron->isVisible());
    rig.setWidth(rig.button("Cross")->geometry().center().x());
    ToolbarRig::settle();
    EXPECT_TRUE(chevron->isVisible());
    EXPECT_FALSE(rig.button("Setup")->isVisible());
    rig.bar.buttonMenus(text("Stage"))->add(text("only"), text("Only"));

    QStringList shown;
    rig.onNextTurn([&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            shown.append(action->text());
            if (action->text() == text("Setup")) {
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
                return;
            }
        }
    });
    QTest::mouseClick(chevron, Qt::LeftButton);
    EXPECT_EQ(rig.clicks, std::vector<std::string>{"Setup"});
    EXPECT_TRUE(shown.contains(text("Cross")));
    EXPECT_TRUE(shown.contains(text("Stage list")));
}

TEST(ToolbarLayouts, RestoringShowsTheButtonsOfTheTextInItsOrder) {
    ToolbarRig rig;
    EXPECT_TRUE(rig.bar.restoreLayout(text("Setup,rubbish,Sep7,Save,Save")));
    ToolbarRig::settle();
    EXPECT_EQ(rig.layout(), "Setup,Sep7,Save");
    EXPECT_LT(rig.button("Setup")->x(), rig.button("Save")->x());
    EXPECT_EQ(rig.button("Acq"), nullptr);
    EXPECT_EQ(rig.item("Acq"), nullptr);
    EXPECT_EQ(rig.customizations, 0);
}

TEST(ToolbarLayouts, ATextWithoutAButtonIsRefusedAndTheBarStays) {
    ToolbarRig rig;
    EXPECT_FALSE(rig.bar.restoreLayout(QString()));
    EXPECT_FALSE(rig.bar.restoreLayout(text("Sep1,what")));
    EXPECT_EQ(rig.layout(), designText);
    EXPECT_NE(rig.button("Save"), nullptr);
}

TEST(ToolbarLayouts, AButtonThatComesBackHasKeptValueEnabledStateAndMenu) {
    ToolbarRig rig;
    rig.bar.buttonMenus(text("Stage"))->add(text("kept"), text("Kept"));
    ASSERT_TRUE(rig.bar.restoreLayout(text("Save")));
    rig.bar.setValue(text("Grid"), true);
    rig.bar.setEnabled(text("Acq"), false);
    EXPECT_TRUE(rig.bar.value(text("Grid")));
    ASSERT_TRUE(rig.bar.restoreLayout(text(designText)));
    EXPECT_TRUE(rig.button("Grid")->isChecked());
    EXPECT_FALSE(rig.button("Acq")->isEnabled());
    ASSERT_NE(rig.button("Stage")->menu(), nullptr);
    EXPECT_EQ(rig.bar.buttonMenus(text("Stage"))->key(0), text("kept"));
}

TEST(ToolbarLayouts, TheFocusStaysOnTheButtonWhileTheBarIsRebuilt) {
    ToolbarRig rig;
    rig.button("Grid")->setFocus();
    ASSERT_TRUE(rig.bar.restoreLayout(text("Setup,Grid")));
    ToolbarRig::settle();
    EXPECT_TRUE(rig.button("Grid")->hasFocus());
}

TEST(ToolbarContextMenu, OnAButtonAndOnTheBarItOffersToCustomizeAndReset) {
    for (const bool onButton : {true, false}) {
        ToolbarRig rig;
        QMenu* const menu = contextMenu(rig, onButton ? static_cast<QWidget*>(rig.button("Save")) : &rig.bar);
        ASSERT_NE(menu, nullptr);
        ASSERT_EQ(menu->actions().size(), 2);
        EXPECT_EQ(menu->actions().at(0)->text(), QStringLiteral("&Customize…"));
        EXPECT_FALSE(menu->actions().at(1)->isEnabled()) << "the default layout has nothing to reset";
        menu->actions().at(0)->trigger();
        EXPECT_NE(rig.bar.findChild<CustomizeToolbarDialog*>(), nullptr);
        menu->close();
    }
}

TEST(ToolbarContextMenu, ResetBringsTheDesignLayoutBackAndReportsIt) {
    ToolbarRig rig;
    ASSERT_TRUE(rig.bar.restoreLayout(text("Grid")));
    QMenu* const menu = contextMenu(rig, &rig.bar);
    ASSERT_NE(menu, nullptr);
    menu->actions().at(1)->trigger();
    menu->close();
    EXPECT_EQ(rig.layout(), designText);
    EXPECT_EQ(rig.customizations, 1);
}

TEST(ToolbarDoubleClick, OnAnEmptyPlaceOrASeparatorItOpensTheDialogOnce) {
    for (const bool onSeparator : {true, false}) {
        ToolbarRig rig;
        const QPoint place = onSeparator ? rig.item("Sep2")->geometry().center() : rig.emptyPlace();
        QTest::mouseDClick(&rig.bar, Qt::LeftButton, {}, place);
        QTest::mouseDClick(&rig.bar, Qt::LeftButton, {}, place);
        EXPECT_EQ(rig.bar.findChildren<CustomizeToolbarDialog*>().size(), 1);
    }
}

TEST(ToolbarDoubleClick, OnAButtonEvenADisabledOneItOpensNothing) {
    ToolbarRig rig;
    rig.bar.setEnabled(text("Save"), false);
    QTest::mouseDClick(rig.button("Save"), Qt::LeftButton);
    QTest::mouseDClick(rig.button("Setup"), Qt::LeftButton);
    QTest::mouseDClick(&rig.bar, Qt::RightButton, {}, rig.emptyPlace());
    EXPECT_TRUE(rig.bar.findChildren<CustomizeToolbarDialog*>().isEmpty());
}
