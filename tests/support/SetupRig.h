#pragma once
// A set-up dialog made of public fields, and a host that brings references into their scale.

#include "tests/support/StubHost.h"
#include "video/BoardSetup.h"
#include "video/CameraSetup.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

namespace ocuva {

/// The stub host keeps whatever it is given; this one does as hosts do.
class ClampingHost : public StubHost {
public:
    TarnLong TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) override {
        const Long taken = StubHost::TarnVideoCameraSetReferences(group, first, second);
        References& kept = references[group];
        kept = {std::clamp(kept.first, 0.0, 100.0), std::clamp(kept.second, 0.0, 100.0)};
        return taken;
    }
};

struct FakeMainWindow final : CameraMainWindow {
    Long handle = 77;
    bool normalZoom = false;
    bool acqEnabled = false;
    int acqWrites = 0;

    Long displayHandle() const override { return handle; }
    bool normalZoomIsChecked() const override { return normalZoom; }
    void enableAcq(bool on) override {
        acqEnabled = on;
        ++acqWrites;
    }
};

struct FakeBoardView final : BoardSetupView {
    Long boardIndex = 1;
    Long vgaCheck = 0;
    bool boardLocked = false;
    Long initColour = -1;
    Long shutColour = -1;
    bool initEnabled = false;
    bool shutEnabled = false;
    std::array<bool, 4> cameraEnabled{};
    bool shutDownShown = false;
    bool unlockEnabled = false;

    Long cbBoardIndex() const override { return boardIndex; }
    void lockCbBoard(bool locked) override { boardLocked = locked; }
    Long VgaCheck() const override { return vgaCheck; }
    void setShInit(Long colour) override { initColour = colour; }
    void setShShut(Long colour) override { shutColour = colour; }
    void enableCmdInit(bool on) override { initEnabled = on; }
    void enableCmdShut(bool on) override { shutEnabled = on; }
    void enableOptCam(Long index, bool on) override {
        cameraEnabled.at(static_cast<std::size_t>(index)) = on;
    }
    void showShutDown(bool on) override { shutDownShown = on; }
    void enableCmdUnlock(bool on) override { unlockEnabled = on; }
};

/// Starts with every slider at 0 and every text empty, as a fresh page does. `onOwnChange`, where set, is
/// told of each change that the program makes, as controls do that cannot tell it from the operator's.
struct FakeCameraView final : CameraSetupView {
    std::array<std::string, 4> texts;
    std::array<Long, 4> sliders{};
    std::vector<std::string> changes; ///< "setText 0 50.0", "setSlider 0 50"
    Long checkedCamera = -1;
    bool autoGain = false;
    Long gainSlider = 0;
    bool gainSliderVisible = false;
    bool autoGainLabelVisible = false;
    std::array<bool, 5> gainLabelVisible{};
    std::function<void(CameraReference)> onOwnTextChange;
    std::function<void(CameraReference)> onOwnSliderChange;
    std::function<void(Long)> onOwnCameraCheck;

    static std::size_t at(CameraReference reference) { return static_cast<std::size_t>(reference); }

    std::string text(CameraReference reference) const override { return texts.at(at(reference)); }
    void setText(CameraReference reference, const std::string& text) override {
        texts.at(at(reference)) = text;
        changes.push_back("setText " + std::to_string(at(reference)) + ' ' + text);
        if (onOwnTextChange) {
            onOwnTextChange(reference);
        }
    }
    Long slider(CameraReference reference) const override { return sliders.at(at(reference)); }
    void setSlider(CameraReference reference, Long position) override {
        sliders.at(at(reference)) = position;
        changes.push_back("setSlider " + std::to_string(at(reference)) + ' ' + std::to_string(position));
        if (onOwnSliderChange) {
            onOwnSliderChange(reference);
        }
    }
    void checkOptCam(Long index) override {
        checkedCamera = index;
        if (onOwnCameraCheck) {
            onOwnCameraCheck(index);
        }
    }
    bool chkAutoGain() const override { return autoGain; }
    Long sldGain() const override { return gainSlider; }
    void showSldGain(bool visible) override { gainSliderVisible = visible; }
    void showLblAutoGain(bool visible) override { autoGainLabelVisible = visible; }
    void showLblGainRange(Long index, bool visible) override {
        gainLabelVisible.at(static_cast<std::size_t>(index)) = visible;
    }
};

} // namespace ocuva
