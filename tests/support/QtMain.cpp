#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <gmock/gmock.h>

// Window tests run one QApplication for the whole program; the platform is offscreen unless the caller sets
// another.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    // Windows remember their places; not in the developer's own settings.
    const QTemporaryDir registry;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, registry.path());
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
