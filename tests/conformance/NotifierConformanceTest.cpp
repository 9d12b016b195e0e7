#include "tests/conformance/HostUnderTest.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <gmock/gmock.h>

namespace {

using ocuva::Notification;
using ocuva::Notifier;
using testing::ElementsAre;
using testing::IsEmpty;

/// A notifier and the identifiers that it has received.
struct Listener {
    Listener(ocuva::Host& host, const std::string& filter)
        : notifier(host.createNotifier()) {
        notifier->setOnNotify([this](const Notification& message) {
            ids.push_back(message.strId);
            last = message;
        });
        notifier->Subscribe(filter);
    }
    std::unique_ptr<Notifier> notifier;
    std::vector<std::string> ids;
    Notification last;
};

class NotifierConformance : public HostConformance {
protected:
    /// Runs the event loop until the condition holds; messages need no more than a moment.
    static bool await(const std::function<bool()>& condition) {
        const QDeadlineTimer deadline(5000);
        while (!condition() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        }
        return condition();
    }
};

// Guards against a server copy that the host cannot reach.
TEST_P(NotifierConformance, AMessageArrivesWithItsThreeTexts) {
    Listener listener(host(), "DST_APP=TN_OCUVA_SERVER");
    const std::unique_ptr<Notifier> sender = host().createNotifier();
    sender->Send("TN_OCUVA_SERVER", "part", "OCUVA_AUTOFOCUS");
    ASSERT_TRUE(await([&] { return !listener.ids.empty(); }));
    EXPECT_EQ(listener.last.strComponent, "TN_OCUVA_SERVER");
    EXPECT_EQ(listener.last.strSubComponent, "part");
    EXPECT_EQ(listener.last.strId, "OCUVA_AUTOFOCUS");
}

// Guards against a copy that acts on other programs' messages.
TEST_P(NotifierConformance, TheFilterLetsThroughItsComponentAlone) {
    Listener listener(host(), "DST_APP=MINE");
    Listener all(host(), "");
    const std::unique_ptr<Notifier> sender = host().createNotifier();
    sender->Send("OTHER", "", "first");
    sender->Send("MINE", "", "second");
    ASSERT_TRUE(await([&] { return all.ids.size() == 2 && !listener.ids.empty(); }));
    EXPECT_THAT(all.ids, ElementsAre("first", "second"));
    EXPECT_THAT(listener.ids, ElementsAre("second"));
}

// Guards against an old filter that stays active next to the new one.
TEST_P(NotifierConformance, ASecondSubscriptionReplacesTheFilter) {
    Listener listener(host(), "DST_APP=OLD");
    listener.notifier->Subscribe("DST_APP=NEW");
    const std::unique_ptr<Notifier> sender = host().createNotifier();
    sender->Send("OLD", "", "old");
    sender->Send("NEW", "", "new");
    ASSERT_TRUE(await([&] { return !listener.ids.empty(); }));
    EXPECT_THAT(listener.ids, ElementsAre("new"));
}

// Guards against a copy that answers its own question for ever.
TEST_P(NotifierConformance, ANotifierDoesNotHearItself) {
    Listener self(host(), "");
    Listener other(host(), "");
    self.notifier->Send("ANY", "", "hello");
    ASSERT_TRUE(await([&] { return !other.ids.empty(); }));
    EXPECT_THAT(self.ids, IsEmpty());
}

// Guards against a handler that runs inside the call that sends: the program is not ready for it there.
TEST_P(NotifierConformance, MessagesArriveFromTheEventLoopAlone) {
    Listener listener(host(), "");
    const std::unique_ptr<Notifier> sender = host().createNotifier();
    sender->Send("ANY", "", "hello");
    EXPECT_THAT(listener.ids, IsEmpty());
    EXPECT_TRUE(await([&] { return !listener.ids.empty(); }));
}

// Guards against a second copy that cannot wake the first: the name is another spelling of the identifier.
TEST_P(NotifierConformance, AMessageByNameArrivesAsItsIdentifier) {
    Listener listener(host(), "DST_APP=TN_OCUVA_SERVER");
    EXPECT_NE(host().tn_ocuva().TarnOcuvaSendMsgByName("OCUVA_WakeUp"), 0);
    ASSERT_TRUE(await([&] { return !listener.ids.empty(); }));
    EXPECT_THAT(listener.ids, ElementsAre("OCUVA_WAKEUP"));
}

// Guards against a message that is delivered to a notifier that is gone.
TEST_P(NotifierConformance, ADestroyedNotifierGetsNothing) {
    const std::unique_ptr<Notifier> sender = host().createNotifier();
    std::vector<std::string> heard;
    {
        Listener gone(host(), "");
        gone.notifier->setOnNotify([&heard](const Notification& message) { heard.push_back(message.strId); });
        sender->Send("ANY", "", "too late");
    }
    Listener other(host(), "");
    sender->Send("ANY", "", "in time");
    ASSERT_TRUE(await([&] { return !other.ids.empty(); }));
    EXPECT_THAT(heard, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Hosts, NotifierConformance, testing::ValuesIn(hostsUnderTest()), hostName);

} // namespace
