#include <QApplication>

#include <gmock/gmock.h>

// Window tests run one QApplication for the whole program; the platform is offscreen unless the caller sets
// another.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
