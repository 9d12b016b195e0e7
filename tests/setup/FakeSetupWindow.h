#pragma once
// A main window that writes down what the set-up dialog does to it, among the calls to the host.

#include "base/Numbers.h"
#include "setup/SetupMainWindow.h"
#include "tests/support/StubHost.h"

#include <string>

namespace ocuva {

struct FakeSetupWindow final : SetupMainWindow {
    StubHost& host;
    MonitorFields image;
    bool canDrawMicroMarker = true;

    explicit FakeSetupWindow(StubHost& recorder)
        : host(recorder) {
        image.GrabSizeX = 768;
        image.GrabSizeY = 576;
        image.GrabZoom = 2;
        image.InitImageSizeX = 5760;
        image.InitImageSizeY = 4320;
    }

    void record(const std::string& name, const std::vector<Long>& arguments) {
        std::string call = name + "(";
        for (const Long argument : arguments) {
            call += (call.back() == '(' ? "" : ", ") + std::to_string(argument);
        }
        host.calls.push_back(call + ")");
    }

    const MonitorFields& fields() const override { return image; }
    void setCrossLengths(const CrossLengths& cross) override {
        record("setCrossLengths", {cross.CrossSize, cross.CrossWidth});
    }
    void setGridLengths(const GridLengths& grid) override {
        record("setGridLengths", {grid.GridSizeX, grid.GridSizeY, grid.GridLineWidth});
    }
    void DrawCross(Long centreY, Long centreX) override { record("DrawCross", {centreY, centreX}); }
    void DrawGrid(Long centreY, Long centreX) override { record("DrawGrid", {centreY, centreX}); }
    void DrawMicroMarker() override {
        record("DrawMicroMarker", {});
        if (!canDrawMicroMarker) {
            throw ArithmeticError("Division by zero");
        }
    }
    void showMagnification(Long magnification) override { record("showMagnification", {magnification}); }
    void showAcquisition() override { record("showAcquisition", {}); }
};

} // namespace ocuva
