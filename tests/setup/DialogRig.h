#pragma once
// The set-up dialog on a stub host and a recording main window, open and active.

#include "setup/frmSetup.h"
#include "tests/setup/FakeSetupWindow.h"
#include "tests/support/SetupRig.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>
#include <memory>

namespace ocuva {

struct DialogRig : testing::Test {
    ClampingHost host;
    Settings settings{host.tn_reg()};
    MagnificationStore magnification{settings, host.tn_lib_proxy()};
    LengthConversion conversion{host.tn_log()};
    CTnVideoBoard board{host.tn_video()};
    StandardList standards{host.tn_reg(), host.tn_lib_proxy()};
    FakeSetupWindow mainWindow{host};
    FakeMainWindow cameraWindow;
    SetupMemory memory;
    std::vector<std::string> reports;
    int menusFilled = 0;
    std::unique_ptr<frmSetup> dialog;

    void open() {
        dialog = std::make_unique<frmSetup>(
            SetupContext{host, settings, magnification, conversion, board, mainWindow, cameraWindow, memory,
                         standards, [] { return false; }, [this] { ++menusFilled; },
                         [this](const QString& text) { reports.push_back(text.toStdString()); }},
            nullptr);
        dialog->show();
        QApplication::setActiveWindow(dialog.get()); // the offscreen platform activates no second window
        QCoreApplication::processEvents();
        host.calls.clear();
    }
    void open(SetupTab tab) {
        open();
        show(tab);
        host.calls.clear();
    }
    void show(SetupTab tab) { dialog->tsSetup->setCurrentIndex(static_cast<int>(tab) - 1); }

    /// Types a text into a box as an operator does, who replaces what is there, and leaves it.
    void type(TextBox* box, const char* text) {
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(box, QString::fromUtf8(text));
        QTest::keyClick(box, Qt::Key_Tab);
        QCoreApplication::processEvents();
    }
    static std::string text(const TextBox* box) { return box->text().toStdString(); }
    std::string setting(const char* key) {
        return host.settings[std::string("Ocuva.INI|Configuration|") + key];
    }
    void set(const char* key, const char* value) {
        host.settings[std::string("Ocuva.INI|Configuration|") + key] = value;
    }
    /// The calls that change something.
    std::vector<std::string> changes() const {
        std::vector<std::string> found;
        for (const std::string& call : host.calls) {
            if (call.find("Get") == std::string::npos && call.find("Enum") == std::string::npos) {
                found.push_back(call);
            }
        }
        return found;
    }
    static std::string written(const char* key, const char* value, const char* section = "Configuration") {
        return std::string("TarnRegisterSetString(\"") + section + "\", \"" + key + "\", \"" + value +
               "\", \"Ocuva.INI\")";
    }
};

} // namespace ocuva
