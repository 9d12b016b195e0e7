#pragma once
// The program as it runs on the bench, with a host that tells when a stage move was loaded.

#include "app/modInter.h"
#include "hostlink/InterposedHost.h"
#include "hosts/simulated/SimulatedHost.h"

#include <QSettings>
#include <QString>

#include <chrono>
#include <optional>
#include <utility>

namespace ocuva::bench {

// Tells when the program loads a stage move, and hands everything on.
class WatchedStage final : public Interposed<TnMicroProxy, HandOn> {
public:
    explicit WatchedStage(TnMicroProxy& stage)
        : Interposed(HandOn(), stage) {}
    std::chrono::steady_clock::time_point loaded;

    TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) override {
        if (axis == axisX) {
            loaded = std::chrono::steady_clock::now();
        }
        return Interposed::TarnLoadStageRelSecure(axis, distance);
    }
};

class WatchedHost final : public InterposedHost<HandOn> {
public:
    explicit WatchedHost(Host& host)
        : InterposedHost(HandOn(), host)
        , stage(host.tn_micro_proxy()) {}
    WatchedStage stage;

    TnMicroProxy& tn_micro_proxy() override { return stage; }
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
