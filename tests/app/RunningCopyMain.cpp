// A process that is a running copy until its standard input closes. It prints "other" or "alone" when it is
// one. A line on its standard input makes it one that has started up; it then prints "up".

#include "app/RunningCopies.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    ocuva::RunningCopies copies(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    std::puts(copies.anotherWasRunning() ? "other" : "alone");
    std::fflush(stdout);
    for (int c = std::getchar(); c != EOF; c = std::getchar()) {
        if (c == '\n') {
            copies.startedUp();
            std::puts("up");
            std::fflush(stdout);
        }
    }
    return 0;
}
