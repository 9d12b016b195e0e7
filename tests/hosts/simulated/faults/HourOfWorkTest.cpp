// An hour of work with the real windows on an instrument on which one thing after the other is broken.

#include "app/modInter.h"
#include "hostlink/Host.h"
#include "hosts/simulated/SimulatedHost.h"
#include "tests/support/OwnRegistry.h"
#include "tests/support/TempFolder.h"

#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <gmock/gmock.h>
#include <set>

namespace {

using namespace ocuva;

constexpr double hourMs = 3600000.0;
constexpr double sliceMs = hourMs / (2.0 * ocuva::hostFunctionNames.size());

/// A notifier without a bus: the test delivers what it likes.
struct DirectNotifier final : Notifier {
    explicit DirectNotifier(DirectNotifier*& registered)
        : present(registered) {
        present = this;
    }
    ~DirectNotifier() override { present = nullptr; }
    void setOnNotify(OnNotify onNotify) override { receiver = std::move(onNotify); }
    void Subscribe(const std::string& /*filter*/) override {}
    void Send(const std::string& /*component*/, const std::string& /*sub*/, const std::string& id) override {
        sent = id;
    }
    DirectNotifier*& present;
    OnNotify receiver;
    std::string sent;
};

/// What the operator got to see, and what was really so.
struct Findings {
    bool boardCameUp = false;
    bool videoWasLive = false;
    bool clickMoved = false;       ///< the sample
    bool watchEndedAtOnce = false; ///< on the first tick after the click
    bool stepMoved = false;
    bool focusIsTrue = false;
    bool answered = false; ///< the question whether a server is up
    int processEnds = 0;
};

class Workplace {
public:
    Workplace() {
        emptyRegistry();
        configure("");
        hosts::simulated::SimulatedHostOptions options;
        options.dataFolder = m_folder.path();
        options.clock = m_clock;
        options.windows = &m_windows;
        options.sendByName = [](const std::string&) { return true; };
        options.createNotifier = [this] { return std::make_unique<DirectNotifier>(m_notifier); };
        m_host = std::make_unique<hosts::simulated::SimulatedHost>(std::move(options));
        // A box that nobody answers would stop the hour.
        QObject::connect(&m_boxes, &QTimer::timeout, &m_boxes, [] {
            if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                box->accept();
            }
        });
        m_boxes.start(5);
    }

    void configure(const std::string& faults) {
        m_folder.write("simulator.ini", "[Camera]\nNoise=1\n[Faults]\n" + faults + "\n");
    }
    double nowMs() const { return m_clock->nowMs(); }

    /// One start of the program, some work, and its end; takes sliceMs of virtual time.
    Findings work() {
        const double beganMs = nowMs();
        Findings found;
        {
            modInter inter({*m_host, m_windows, m_automation, "-client", [] { return false; },
                            QStringLiteral("Ocuva (test)"), [&found] { ++found.processEnds; }});
            inter.Main();
            m_window = &inter.mainWindow();
            QCoreApplication::processEvents();
            found.boardCameUp = m_window->cxvbBoard().IsInitialized();
            lookAtLiveVideo(found);
            click(found);
            stepZ(found);
            zoomAndResize();
            action("mmuBckl");
            settleStage();
            focus(found);
            message(found);
            m_window->close();
            QCoreApplication::processEvents();
        }
        m_clock->advance(std::max(beganMs + sliceMs - nowMs(), 0.0));
        return found;
    }

private:
    void action(const char* name) { m_window->menu().action(name)->trigger(); }
    void tick() {
        ASSERT_TRUE(QMetaObject::invokeMethod(m_window->tStageMove, "timeout", Qt::DirectConnection));
    }
    /// Ticks, as the timer would, until the watch has ended.
    void settleStage() {
        for (int ticks = 0; m_window->tStageMove->isActive(); ++ticks) {
            ASSERT_LT(ticks, 1000) << "the watch never ends";
            m_clock->advance(64.0);
            tick();
        }
        m_clock->advance(2000.0); // a status that fails ends the watch before the move
    }
    void lookAtLiveVideo(Findings& found) {
        // The program starts as it was left: live or not.
        if (!m_window->cxvbBoard().IsGrabbing()) {
            action("mnuAcq");
        }
        const std::uint64_t before = m_window->panels().milDisp->framesShown();
        m_clock->advance(200.0);
        QCoreApplication::processEvents();
        m_window->panels().milDisp->grab(); // paints
        const bool frames = m_window->panels().milDisp->framesShown() > before;
        found.videoWasLive = m_window->cxvbBoard().IsGrabbing() && frames;
        EXPECT_EQ(m_window->menu().action("mnuAcq")->isChecked(), m_window->cxvbBoard().IsGrabbing());
    }
    void click(Findings& found) {
        MilDisplay* display = m_window->panels().milDisp;
        const ocuva::ExactStagePosition before = m_host->truth().position();
        QTest::mouseClick(display, Qt::LeftButton, Qt::NoModifier,
                          QPoint(display->width() / 2 + 40, display->height() / 2 + 30));
        tick();
        found.watchEndedAtOnce = !m_window->tStageMove->isActive();
        settleStage();
        const ocuva::ExactStagePosition after = m_host->truth().position();
        found.clickMoved = std::hypot(after.x - before.x, after.y - before.y) > 10.0;
    }
    void stepZ(Findings& found) {
        const double before = m_host->truth().position().z;
        QTest::mouseClick(m_window->upDown().cmdUp.at(2), Qt::LeftButton);
        settleStage();
        found.stepMoved = std::abs(m_host->truth().position().z - before - 5.0) < 0.5;
    }
    void zoomAndResize() {
        action("mnuZoom0");
        m_window->resize(m_window->width() + 50, m_window->height() + 20);
        QCoreApplication::processEvents();
        action("mnuZoom1");
        QCoreApplication::processEvents();
    }
    void focus(Findings& found) {
        action("mnuFocus");
        found.focusIsTrue = std::abs(m_host->truth().defocus()) < 2.0;
    }
    void message(Findings& found) {
        ASSERT_NE(m_notifier, nullptr);
        m_notifier->receiver({0, "TN_OCUVA_SERVER", "", "OCUVA_IS_SERVER_UP"});
        found.answered = m_notifier->sent == "OCUVA_SERVER_IS_UP";
    }

    TempFolder m_folder;
    std::shared_ptr<hosts::VirtualClock> m_clock = std::make_shared<hosts::VirtualClock>();
    DisplayWindows m_windows;
    NoAutomation m_automation;
    DirectNotifier* m_notifier = nullptr;
    std::unique_ptr<hosts::simulated::SimulatedHost> m_host;
    frmOcuva* m_window = nullptr;
    QTimer m_boxes;
};

using Names = std::set<std::string_view>;

bool is(const Names& names, std::string_view name) { return names.count(name) > 0; }

/// What stands in the way of what, when a function fails.
void expectWhatAFailureAllows(std::string_view failing, const Findings& found) {
    const Names noBoard{"TarnVideoBoardInit"};
    const Names noVideo{"TarnVideoBoardInit", "TarnVideoBoardStartGrab", "TarnVideoBoardFunction"};
    const Names noMove{"TarnLoadStageRelSecure", "TarnStartStage", "TarnGetVideoMag100Factors"};
    const Names watchEnds{"TarnLoadStageRelSecure", "TarnStartStage", "TarnReadStageStatus",
                          "TarnGetVideoMag100Factors"};
    const Names noStep{"TarnLoadStageRelSecure", "TarnStartStage"};
    const Names noFocus{"TarnVideoBoardInit", "TarnAutoFocusExt"};
    EXPECT_EQ(found.boardCameUp, !is(noBoard, failing));
    EXPECT_EQ(found.videoWasLive, !is(noVideo, failing));
    EXPECT_EQ(found.clickMoved, !is(noMove, failing));
    EXPECT_EQ(found.watchEndedAtOnce, is(watchEnds, failing));
    EXPECT_EQ(found.stepMoved, !is(noStep, failing));
    EXPECT_EQ(found.focusIsTrue, !is(noFocus, failing));
    EXPECT_TRUE(found.answered);
    EXPECT_EQ(found.processEnds, 1);
}

TEST(AnHourOfWork, IsDoneWhicheverHostFunctionFailsOrIsSlow) {
    Workplace workplace;
    int slices = 0;
    for (std::size_t i = 0; i < ocuva::hostFunctionNames.size(); i += OCUVA_HOUR_STRIDE) {
        const std::string_view function = ocuva::hostFunctionNames[i];
        SCOPED_TRACE(std::string(function));
        workplace.configure(std::string(function) + "=fail");
        expectWhatAFailureAllows(function, workplace.work());
        workplace.configure(std::string(function) + ".SlowMs=50");
        const Findings slow = workplace.work();
        EXPECT_TRUE(slow.boardCameUp && slow.videoWasLive && slow.clickMoved && slow.stepMoved);
        EXPECT_TRUE(slow.focusIsTrue && slow.answered);
        EXPECT_EQ(slow.processEnds, 1);
        slices += 2;
    }
    EXPECT_GE(workplace.nowMs(), slices * sliceMs - 1.0);
}

TEST(AnHourOfWork, ContinuesWithAnyBrokenDevice) {
    Workplace workplace;
    for (const char* fault :
         {"BoardRefuses=1", "GrabStopsByItself=3", "Camera=frozen", "Camera=stuck", "Camera=black",
          "Camera=late", "Camera=torn", "Stage=refusing", "Stage=stalling", "Stage=lying", "Focus=nothing",
          "DbObject=missing", "DbObject=noposition", "StoreNotWritable=1", "Lamp=0"}) {
        SCOPED_TRACE(fault);
        workplace.configure(fault);
        const Findings found = workplace.work();
        EXPECT_TRUE(found.answered);
        EXPECT_EQ(found.processEnds, 1);
        const std::string name = fault;
        EXPECT_EQ(found.boardCameUp, name != "BoardRefuses=1");
        EXPECT_EQ(found.clickMoved, name != "Stage=refusing" && name != "Stage=stalling");
        EXPECT_EQ(found.watchEndedAtOnce, name == "Stage=refusing");
    }
    workplace.configure("");
    const Findings well = workplace.work();
    EXPECT_TRUE(well.boardCameUp && well.videoWasLive && well.clickMoved && well.stepMoved);
}

} // namespace
