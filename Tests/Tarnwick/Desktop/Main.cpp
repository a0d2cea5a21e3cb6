#include <QGuiApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    // Tests bring no windows to anybody's screen, and nothing of theirs reaches the user's bus.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
