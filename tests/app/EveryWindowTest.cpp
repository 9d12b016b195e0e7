// Requirements on every window of the program: screen readers, keyboard operation, and remembered places.

#include "controls/WindowPlace.h"
#include "tests/app/EveryWindowRig.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLineEdit>
#include <QRadioButton>

#include <set>

using namespace ocuva;
using testing::IsEmpty;

namespace {

// Parts of a control that Qt makes for itself are the control's business.
bool isControl(const QWidget& widget) {
    const bool takesFocus = widget.focusPolicy() != Qt::NoFocus && widget.focusProxy() == nullptr;
    return !widget.isWindow() && !widget.objectName().startsWith(QStringLiteral("qt_")) &&
           (takesFocus || qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
            qobject_cast<const QLineEdit*>(&widget) != nullptr);
}

std::vector<QWidget*> controlsOf(const QWidget& window) {
    std::vector<QWidget*> controls;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->isVisible() && isControl(*widget)) {
            controls.push_back(widget);
        }
    }
    return controls;
}

std::string spoken(QWidget& widget, QAccessible::Text kind) {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
    return interface != nullptr ? interface->text(kind).toStdString() : std::string();
}

std::vector<std::string> withoutName(const QWidget& window) {
    std::vector<std::string> nameless;
    for (QWidget* control : controlsOf(window)) {
        const std::string name = spoken(*control, QAccessible::Name);
        if (name.find_first_not_of(" \xe2\x86\x91\xe2\x86\x93") == std::string::npos) { // arrows tell nothing
            nameless.push_back(described(*control));
        }
    }
    return nameless;
}

// Of a group of radio buttons Tab reaches one, and the arrow keys the others.
bool isReachedByArrows(const QWidget& widget, const std::set<const QWidget*>& visited) {
    const auto* radio = qobject_cast<const QRadioButton*>(&widget);
    return radio != nullptr && std::any_of(visited.begin(), visited.end(), [radio](const QWidget* other) {
               return qobject_cast<const QRadioButton*>(other) != nullptr &&
                      other->parentWidget() == radio->parentWidget();
           });
}

std::vector<std::string> outOfReachOfTab(QWidget& window) {
    QApplication::setActiveWindow(&window);
    std::set<const QWidget*> visited;
    for (int turn = 0; turn < 200; ++turn) {
        QWidget* focused = window.focusWidget();
        QTest::keyClick(focused != nullptr ? focused : &window, Qt::Key_Tab);
        visited.insert(window.focusWidget());
    }
    std::vector<std::string> missed;
    for (QWidget* control : controlsOf(window)) {
        const bool canFocus = control->isEnabled() && control->focusPolicy() != Qt::NoFocus;
        if (canFocus && !visited.contains(control) && !isReachedByArrows(*control, visited)) {
            missed.push_back(described(*control));
        }
    }
    return missed;
}

} // namespace

TEST_F(EveryWindow, CanBeShown) {
    std::set<std::string> names;
    for (const QWidget* shown : windowsOnScreen()) {
        names.insert(shown->objectName().toStdString());
    }
    EXPECT_THAT(names, testing::ElementsAre("dlgCustomizeToolbar", "frmHelp", "frmMove", "frmOcuva",
                                            "frmSetup", "frmSetupStage", "frmStdList"));
}

TEST_F(EveryWindow, NamesEachOfItsControlsForAScreenReader) {
    forEachPage([](QWidget& shown, const std::string& where) {
        EXPECT_THAT(withoutName(shown), IsEmpty()) << where;
    });
}

TEST_F(EveryWindow, LetsTabReachEachOfItsControls) {
    standardList->close(); // they are modal, and would keep the keys of the others
    window().findChild<QDialog*>(QStringLiteral("dlgCustomizeToolbar"))->close();
    QCoreApplication::processEvents();
    forEachPage([](QWidget& shown, const std::string& where) {
        EXPECT_THAT(outOfReachOfTab(shown), IsEmpty()) << where;
    });
}

TEST_F(EveryWindow, ThatIsModalLetsTabReachEachOfItsControls) {
    EXPECT_THAT(outOfReachOfTab(*standardList), IsEmpty());
    standardList->close();
    QWidget* customize = window().findChild<QDialog*>(QStringLiteral("dlgCustomizeToolbar"));
    EXPECT_THAT(outOfReachOfTab(*customize), IsEmpty());
}

TEST_F(EveryWindow, KeepsItsPlace) {
    for (const QWidget* shown : windowsOnScreen()) {
        EXPECT_NE(shown->findChild<WindowPlace*>(QString(), Qt::FindDirectChildrenOnly), nullptr)
            << described(*shown);
    }
}

TEST_F(EveryWindow, GivesScreenReadersTheStagePositionAndTheImageState) {
    host.position = {{axisX, -12}, {axisY, 34567}, {axisZ, 8}};
    window().UpdateStagePos();
    QWidget& image = *window().panels().milDisp;
    EXPECT_EQ(spoken(image, QAccessible::Name), "Live image");
    EXPECT_EQ(spoken(image, QAccessible::Value), "X -12, Y 34567, Z 8, Still 1:2 400x");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&image)->role(), QAccessible::Graphic);
    action("mnuAcq")->trigger();
    EXPECT_EQ(spoken(image, QAccessible::Value), "X -12, Y 34567, Z 8, Live 1:2 400x");
    QWidget& panel = *window().sbMain->panel(QStringLiteral("Y"));
    EXPECT_EQ(spoken(panel, QAccessible::Name), "Stage Y current position");
    EXPECT_EQ(spoken(panel, QAccessible::Description), "34567");
}
