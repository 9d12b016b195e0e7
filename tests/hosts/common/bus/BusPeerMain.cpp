// A process at the far end of the bus, for tests:
//   bus_peer listen FOLDER FILTER        says "ready", then prints each message as component|sub-component|id
//   bus_peer send FOLDER COUNT           sends the identifiers 0 to COUNT-1 to component "MANY" and ends
//   bus_peer name FOLDER NAME            sends a message by name and ends; prints whether somebody took it
#include "hosts/common/bus/MessageBus.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

namespace {

void say(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

int listen(QCoreApplication& application, hosts::MessageBus& bus, const std::string& filter) {
    const auto notifier = bus.createNotifier();
    notifier->setOnNotify([](const ocuva::Notification& message) {
        say(message.strComponent + '|' + message.strSubComponent + '|' + message.strId);
    });
    notifier->Subscribe(filter);
    say("ready");
    return application.exec();
}

int sendMany(hosts::MessageBus& bus, int count) {
    const auto notifier = bus.createNotifier();
    for (int i = 0; i < count; ++i) {
        notifier->Send("MANY", "", std::to_string(i));
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 4) {
        return 2;
    }
    hosts::MessageBus bus(arguments[2].toStdU16String(),
                          [](const std::string& line) { say("log: " + line); });
    if (arguments[1] == QLatin1String("listen")) {
        return listen(application, bus, arguments[3].toStdString());
    }
    if (arguments[1] == QLatin1String("send")) {
        return sendMany(bus, arguments[3].toInt());
    }
    say(bus.sendByName(arguments[3].toStdString()) ? "taken" : "nobody");
    return 0;
}
