#include "Tarnwick/Desktop/SystemMachineEvents.h"

#include "Desktop/PrivateBus.h"
#include "Fakes/EventLoop.h"

namespace {

using namespace TestSupport;

/// A bus with stand-ins for logind and NetworkManager, and somebody else.
class SystemMachineEventsTest : public testing::Test {
protected:
    SystemMachineEventsTest()
    {
        EXPECT_TRUE(logind.registerService(QStringLiteral("org.freedesktop.login1")));
        EXPECT_TRUE(networks.registerService(QStringLiteral("org.freedesktop.NetworkManager")));
        QObject::connect(&events, &MachineEvents::woke, &events, [this] { ++wakes; });
        QObject::connect(&events, &MachineEvents::networkReturned, &events, [this] { ++returns; });
    }

    static void sayThatSleepIs(QDBusConnection& sender, bool isNear)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"),
            QStringLiteral("PrepareForSleep"));
        signal << isNear;
        sender.send(signal);
    }

    static void sayNetworkState(QDBusConnection& sender, quint32 state)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/NetworkManager"),
            QStringLiteral("org.freedesktop.NetworkManager"),
            QStringLiteral("StateChanged"));
        signal << state;
        sender.send(signal);
    }

    PrivateBus bus;
    QDBusConnection logind = bus.connect();
    QDBusConnection networks = bus.connect();
    QDBusConnection stranger = bus.connect();
    SystemMachineEvents events{bus.connect()};
    int wakes = 0;
    int returns = 0;
};

TEST_F(SystemMachineEventsTest, tellsThatTheMachineWokeButNotThatItFallsAsleep)
{
    sayThatSleepIs(logind, true);
    sayThatSleepIs(logind, false);
    EXPECT_TRUE(eventually([&] { return wakes == 1; }));
    sayThatSleepIs(logind, false);
    EXPECT_TRUE(eventually([&] { return wakes == 2; }));
}

TEST_F(SystemMachineEventsTest, believesNobodyButTheOwnersOfTheNames)
{
    sayThatSleepIs(stranger, false);
    sayNetworkState(stranger, 70);
    sayThatSleepIs(logind, false);
    ASSERT_TRUE(eventually([&] { return wakes > 0; }));
    sayNetworkState(networks, 70);
    ASSERT_TRUE(eventually([&] { return returns > 0; }));
    EXPECT_EQ(wakes, 1);
    EXPECT_EQ(returns, 1);
}

TEST_F(SystemMachineEventsTest, tellsThatANetworkIsThereAgain)
{
    constexpr quint32 disconnected = 20;
    constexpr quint32 connectedLocally = 50;
    constexpr quint32 connectedGlobally = 70;
    for (const quint32 state : {disconnected, connectedLocally, connectedGlobally}) {
        sayNetworkState(networks, state);
    }
    EXPECT_TRUE(eventually([&] { return returns == 1; }));
}

TEST_F(SystemMachineEventsTest, saysNothingWithoutABus)
{
    SystemMachineEvents silent{QDBusConnection(QStringLiteral("no such connection"))};
    bus.stop();
    processEvents();
    EXPECT_EQ(wakes, 0);
}

}  // namespace
