// A process that is a running copy until its standard input closes. It prints "other" or "alone" when it is
// one.

#include "app/RunningCopies.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const ocuva::RunningCopies copies(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    std::puts(copies.anotherWasRunning() ? "other" : "alone");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
