// A process under load at the far end of the bus, for tests:
//   bus_load flood FOLDER NAME COUNT     sends the numbers 0 to COUNT-1 as messages of NAME and ends
//   bus_load count FOLDER COUNT          says "ready", and after every tenth part of COUNT messages what it
//   has heard:
//                                        "heard N, out of order N, resident N KiB"
#include "hosts/common/bus/MessageBus.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>
#include <fstream>
#include <map>
#include <string>

namespace {

constexpr const char* component = "LOAD";

/// Memory of this process that is in use; 0 where the system does not tell.
long residentKiB() {
    std::ifstream status("/proc/self/status");
    std::string word;
    long number = 0;
    while (status >> word) {
        if (word == "VmRSS:" && status >> number) {
            return number;
        }
    }
    return 0;
}

int flood(hosts::MessageBus& bus, const std::string& name, int count) {
    const auto notifier = bus.createNotifier();
    for (int i = 0; i < count; ++i) {
        notifier->Send(component, name, std::to_string(i));
    }
    return 0;
}

int countMessages(QCoreApplication& application, hosts::MessageBus& bus, int count) {
    const auto notifier = bus.createNotifier();
    std::map<std::string, int> next;
    int heard = 0;
    int outOfOrder = 0;
    notifier->setOnNotify([&](const ocuva::Notification& message) {
        outOfOrder += message.strId == std::to_string(next[message.strSubComponent]++) ? 0 : 1;
        if (++heard % (count / 10) == 0) {
            std::printf("heard %d, out of order %d, resident %ld KiB\n", heard, outOfOrder, residentKiB());
            std::fflush(stdout);
        }
    });
    notifier->Subscribe(std::string("DST_APP=") + component);
    std::puts("ready");
    std::fflush(stdout);
    return application.exec();
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    hosts::MessageBus bus(arguments.at(2).toStdU16String(),
                          [](const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); });
    if (arguments.at(1) == QLatin1String("flood")) {
        return flood(bus, arguments.at(3).toStdString(), arguments.at(4).toInt());
    }
    return countMessages(application, bus, arguments.at(3).toInt());
}
