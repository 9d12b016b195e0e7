#pragma once
// A whole simulated host in virtual time whose configuration can be changed while it runs.

#include "hosts/simulated/SimulatedHost.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <memory>
#include <string>

namespace hosts::simulated {

struct TruthRig {
    explicit TruthRig(const std::string& simulatorIni = {}) {
        configure(simulatorIni);
        SimulatedHostOptions options;
        options.dataFolder = folder.path();
        options.clock = clock;
        options.sendByName = [](const std::string&) { return true; };
        host = std::make_unique<SimulatedHost>(std::move(options));
    }
    /// Noise is off unless the text says otherwise, so that pictures can be compared.
    void configure(const std::string& text) {
        const bool hasCamera = text.find("[Camera]") != std::string::npos;
        folder.write("simulator.ini", text + (hasCamera ? "" : "[Camera]\nNoise=0\n"));
    }
    ocuva::TnVideo& video() { return host->tn_video(); }
    ocuva::TnMicroProxy& micro() { return host->tn_micro_proxy(); }

    void goTo(TarnLong axis, TarnLong target) {
        micro().TarnLoadStageAbs(axis, static_cast<TarnSingle>(target));
        micro().TarnStartStage(axis);
        clock->advance(20000.0);
    }
    TarnLong reading(TarnLong axis) {
        TarnLong position = 0;
        micro().TarnReadStagePos(axis, &position);
        return position;
    }
    bool moving(TarnLong axis) {
        TarnLong status = 0;
        return micro().TarnReadStageStatus(axis, 0, &status) != 0 && status != 0;
    }
    void live() {
        video().TarnVideoBoardInit();
        video().TarnVideoBoardStartGrab(1, 1);
        clock->advance(100.0);
    }
    /// The current frame after some more time.
    ocuva::FramePtr frameAfter(double ms = 100.0) {
        clock->advance(ms);
        return host->board().currentFrame();
    }
    struct Grey {
        double mean;
        double variance;
    };
    Grey greyAfter(double ms = 100.0) {
        clock->advance(ms);
        TarnLong buffer = 0;
        TarnLong count = 0;
        TarnLong sum = 0;
        TarnDouble variance = 0.0;
        host->tn_vduti().TarnVideoBufferComputeStatistics(&buffer, 0, 0, -1, -1, &count, &sum, &variance);
        return {count > 0 ? static_cast<double>(sum) / count : 0.0, variance};
    }
    void gain(TarnLong range) { video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_GAIN, &range); }
    std::string log() const { return folder.read("tarn.log"); }
    int timesInLog(const std::string& text) const {
        const std::string whole = log();
        int times = 0;
        for (std::size_t at = whole.find(text); at != std::string::npos; at = whole.find(text, at + 1)) {
            ++times;
        }
        return times;
    }

    TempFolder folder;
    std::shared_ptr<VirtualClock> clock = std::make_shared<VirtualClock>();
    std::unique_ptr<SimulatedHost> host;
};

} // namespace hosts::simulated
