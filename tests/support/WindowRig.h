#pragma once
// The whole program on a stub host, as Main starts it.

#include "app/modInter.h"
#include "tests/support/OwnRegistry.h"
#include "tests/support/StubHost.h"

#include <QTest>

#include <gmock/gmock.h>

namespace ocuva {

struct WindowRig : testing::Test {
    StubHost host;
    DisplayWindows windows;
    NoAutomation automation;
    int processEnds = 0;
    std::vector<JournalEntry> journal;
    ReportSurroundings report;
    bool anotherCopy = false;
    std::unique_ptr<modInter> inter;

    WindowRig() { emptyRegistry(); }

    bool start(const std::string& commandLine = "") {
        inter = std::make_unique<modInter>(
            StartContext{host, windows, automation, commandLine, [this] { return anotherCopy; },
                         QStringLiteral("Ocuva (test)"), [this] { ++processEnds; }, modServer::idleTickMs,
                         [this](const JournalEntry& entry) { journal.push_back(entry); }, report});
        return inter->Main();
    }
    frmOcuva& window() { return inter->mainWindow(); }
    QAction* action(const char* name) { return window().menu().action(name); }
    template <typename Widget> Widget* child(const char* name) {
        return window().findChild<Widget*>(QString::fromLatin1(name));
    }
    std::string panel(const char* key) {
        return window().sbMain->panel(QString::fromLatin1(key))->text().toStdString();
    }
    void click(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(window().panels().milDisp, button, Qt::NoModifier, at);
    }
    void toolbar(const char* key) {
        QToolButton* button = window().tbMain->button(QString::fromLatin1(key));
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(6, button->height() / 2));
    }
};

} // namespace ocuva
