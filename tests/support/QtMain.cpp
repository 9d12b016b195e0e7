#include "support/OwnRegistry.h"

#include <QApplication>
#include <QFont>

#include <gmock/gmock.h>

// Window tests run one QApplication for the whole program; the platform is offscreen unless the caller sets
// another.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
#ifdef _WIN32
    // The offscreen platform does not know the system's usual font there.
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(8.25);
    QApplication::setFont(font);
#endif
    const ocuva::OwnRegistry registry;
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
