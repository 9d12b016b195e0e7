#pragma once
// Every window of the program at once, and each of their pages in turn.

#include "setup/frmSetup.h"
#include "standards/frmStdList.h"
#include "tests/support/WindowRig.h"

#include <QTabWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ocuva {

inline std::string described(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + ' ' + widget.objectName().toStdString();
}

struct EveryWindow : WindowRig {
    std::unique_ptr<StandardList> list;
    std::unique_ptr<frmStdList> standardList;

    void SetUp() override {
        start();
        QCoreApplication::processEvents();
        action("mnuMove")->trigger();
        action("Picture")->trigger();
        action("mnuSetup")->trigger();
        action("mnuManual")->trigger();
        window().tbMain->customize();
        list = std::make_unique<StandardList>(host.tn_reg(), host.tn_lib_proxy());
        standardList = std::make_unique<frmStdList>(
            *list, host.tn_lib_proxy(), [] { return false; }, [] {},
            [](const QString& /*what*/) { return nullptr; }, &window());
        standardList->show();
        QCoreApplication::processEvents();
    }
    std::vector<QWidget*> windowsOnScreen() const {
        std::vector<QWidget*> shown;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && widget->isWindow()) {
                shown.push_back(widget);
            }
        }
        return shown;
    }
    // Each window, and those with tabs once for each of their pages.
    void forEachPage(const std::function<void(QWidget&, const std::string& where)>& look) const {
        for (QWidget* shown : windowsOnScreen()) {
            auto* tabs = shown->findChild<QTabWidget*>();
            const int pages = tabs != nullptr ? tabs->count() : 1;
            for (int page = 0; page < pages; ++page) {
                if (tabs != nullptr) {
                    tabs->setCurrentIndex(page);
                }
                look(*shown, described(*shown) + " page " + std::to_string(page));
            }
        }
    }
};

} // namespace ocuva
