#pragma once
// The program as it runs on the bench, with a host that tells when a stage move was loaded.

#include "app/modInter.h"
#include "hosts/simulated/SimulatedHost.h"

#include <QSettings>
#include <QString>

#include <chrono>
#include <optional>
#include <utility>

namespace ocuva::bench {

// Tells when the program loads a stage move, and hands everything on.
class WatchedStage final : public TnMicroProxy {
public:
    explicit WatchedStage(TnMicroProxy& stage)
        : m_stage(stage) {}
    std::chrono::steady_clock::time_point loaded;

    TarnLong TarnStartStage(TarnLong axis) override { return m_stage.TarnStartStage(axis); }
    TarnLong TarnLoadStageAbs(TarnLong axis, TarnSingle target) override {
        return m_stage.TarnLoadStageAbs(axis, target);
    }
    TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) override {
        if (axis == axisX) {
            loaded = std::chrono::steady_clock::now();
        }
        return m_stage.TarnLoadStageRelSecure(axis, distance);
    }
    TarnLong TarnReadStagePos(TarnLong axis, TarnLong* position) override {
        return m_stage.TarnReadStagePos(axis, position);
    }
    TarnLong TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) override {
        return m_stage.TarnReadStageStatus(axis, zero, status);
    }
    TarnLong TarnAutoFocusExt(TarnLong flag) override { return m_stage.TarnAutoFocusExt(flag); }
    TarnLong TarnBacklashStage(TarnLong axis) override { return m_stage.TarnBacklashStage(axis); }

private:
    TnMicroProxy& m_stage;
};

class WatchedHost final : public Host {
public:
    explicit WatchedHost(Host& host)
        : stage(host.tn_micro_proxy())
        , m_host(host) {}
    WatchedStage stage;

    TnReg& tn_reg() override { return m_host.tn_reg(); }
    TnLog& tn_log() override { return m_host.tn_log(); }
    TnLogKeys& Tn_log() override { return m_host.Tn_log(); }
    TnOcuva& tn_ocuva() override { return m_host.tn_ocuva(); }
    TnLibProxy& tn_lib_proxy() override { return m_host.tn_lib_proxy(); }
    TnMicroProxy& tn_micro_proxy() override { return stage; }
    TnVideo& tn_video() override { return m_host.tn_video(); }
    TnVduti& tn_vduti() override { return m_host.tn_vduti(); }
    std::unique_ptr<Notifier> createNotifier() override { return m_host.createNotifier(); }

private:
    Host& m_host;
};

// The program as it starts on the bench: its own data folder, live from the start.
struct Program {
    explicit Program(const QString& folder) {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
        hosts::simulated::SimulatedHostOptions options;
        options.dataFolder = (folder + QStringLiteral("/data")).toStdString();
        options.windows = &windows;
        simulated.emplace(std::move(options));
        host.emplace(*simulated);
        inter.emplace(StartContext{*host, windows, automation, "", [] { return false; },
                                   QStringLiteral("bench"), [] {}});
        inter->Main();
    }
    MilDisplay& display() { return *inter->mainWindow().panels().milDisp; }

    DisplayWindows windows;
    NoAutomation automation;
    std::optional<hosts::simulated::SimulatedHost> simulated;
    std::optional<WatchedHost> host;
    std::optional<modInter> inter;
};

} // namespace ocuva::bench
