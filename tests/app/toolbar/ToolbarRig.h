#pragma once
// A toolbar on the screen and the events that came out of it.

#include "app/Commands.h"
#include "app/toolbar/MainToolbar.h"
#include "app/toolbar/ToolbarButtons.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>
#include <string>
#include <vector>

/// The layout that the bar comes with, as its text.
inline constexpr char designText[] =
    "Save,Acq,Sep1,Zoom,Cross,Grid,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4";

inline QString text(const char* latin1) { return QString::fromLatin1(latin1); }

struct ToolbarRig {
    QWidget window;
    ocuva::MainToolbar bar{ocuva::commandButtons(), &window};
    std::vector<std::string> clicks;
    std::vector<std::string> menuClicks;
    int customizations = 0;
    QTimer nextTurn;

    explicit ToolbarRig(int spareWidthPx = 60) {
        QObject::connect(&bar, &ocuva::MainToolbar::buttonClicked, &bar,
                         [this](const QString& key) { clicks.push_back(key.toStdString()); });
        QObject::connect(&bar, &ocuva::MainToolbar::buttonMenuClicked, &bar,
                         [this](const QString& key, const QString& item) {
                             menuClicks.push_back((key + u'/' + item).toStdString());
                         });
        QObject::connect(&bar, &ocuva::MainToolbar::customized, &bar, [this] { ++customizations; });
        setWidth(bar.sizeHint().width() + spareWidthPx);
        window.resize(bar.width() + 100, bar.height() + 200);
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        settle();
    }

    void setWidth(int widthPx) { bar.setGeometry(20, 0, widthPx, bar.sizeHint().height()); }

    // Lets deferred deletions and layouts happen.
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Acts from inside the event loop of a menu that is about to be opened.
    template <typename Action> void onNextTurn(Action action) {
        nextTurn.setSingleShot(true);
        QObject::connect(&nextTurn, &QTimer::timeout, &bar, action);
        nextTurn.start(0);
    }

    QToolButton* button(const char* key) const { return bar.button(text(key)); }
    std::string layout() const { return bar.layoutText().toStdString(); }
    QPoint emptyPlace() const { return {bar.width() - 10, bar.height() / 2}; }
    QWidget* item(const char* key) const {
        return bar.findChild<QWidget*>(text(key), Qt::FindDirectChildrenOnly);
    }
};
