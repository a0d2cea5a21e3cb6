#include "Tarnwick/Desktop/NotificationCentre.h"

#include "Desktop/NotificationServer.h"
#include "Desktop/PrivateBus.h"
#include "Fakes/EventLoop.h"
#include "Fakes/FakeClock.h"
#include "Fakes/RecordingSurroundings.h"
#include "Support/Errors.h"
#include "Support/PullRequests.h"
#include "Tarnwick/Desktop/SystemPullRequestNotifier.h"

#include <QDBusConnectionInterface>

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

using Authorization = NotificationAuthorization;

/// The program on one bus with a scripted notification server, or with none.
class NotificationCentreTest : public testing::Test {
protected:
    NotificationCentreTest() { begin(bus.connect()); }

    ~NotificationCentreTest() override
    {
        server.reset();
        processEvents();
    }

    /// The program starts, on this connection.
    void begin(const QDBusConnection& connection)
    {
        centre = std::make_shared<NotificationCentre>(connection, clock);
        centre->setDelegate(std::make_shared<NotificationPresentationDelegate>(
            std::make_shared<ExternalNavigation>(desktop.navigation())));
        notifier = std::make_unique<SystemPullRequestNotifier>(centre);
    }

    void startServer() { server = std::make_unique<NotificationServer>(bus.connect()); }

    Authorization authorization() const { return valueOf(notifier->authorization()); }

    bool isGranted() const { return valueOf(notifier->requestAuthorization()); }

    /// Whether permission is given that is asked for before `change`, and not answered until then.
    bool isGrantedAfter(const std::function<void()>& change)
    {
        std::optional<bool> answer;
        auto asking = keep(notifier->requestAuthorization(), &answer);
        EXPECT_TRUE(eventually([&] { return !clock->sleepers().empty(); }));
        EXPECT_EQ(answer, std::nullopt);
        change();
        runToEnd(std::move(asking));
        return answer.value();
    }

    /// The program has run for longer than a session takes to start.
    void passSessionStart() { clock->advance(std::chrono::seconds(11)); }

    void deliver(std::int64_t number = 7)
    {
        runToEnd(notifier->notifyNew(makePullRequest(number)));
    }

    void startAndDeliver()
    {
        startServer();
        deliver();
    }

    std::string problemOfDelivery()
    {
        return messageOf([this] { deliver(); });
    }

    /// What the user did has reached the program, because an answer sent after it has.
    void settle()
    {
        isGranted();
        processEvents();
    }

    /// The program knows who owns the server's name now, and has asked the owner nothing.
    void settleOwner()
    {
        authorization();
        processEvents();
    }

    std::vector<std::string> opened()
    {
        std::vector<std::string> lines;
        for (const std::string& line : desktop.journal()) {
            if (line.starts_with("launch ")) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    PrivateBus bus;
    RecordingSurroundings desktop;
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    std::unique_ptr<NotificationServer> server;
    std::shared_ptr<NotificationCentre> centre;
    std::unique_ptr<SystemPullRequestNotifier> notifier;
};

TEST_F(NotificationCentreTest, showsANotificationAsTheServerCan)
{
    startServer();
    runToEnd(notifier->notifyUnblocked(makePullRequest(7)));
    ASSERT_THAT(server->shown, SizeIs(1));
    const NotificationServer::Shown& shown = server->shown.front();
    EXPECT_EQ(shown.application, "Tarnwick");
    EXPECT_EQ(shown.summary, makePullRequest(7).title);
    EXPECT_EQ(shown.body, "Pull request unblocked");
    EXPECT_THAT(shown.actions, ElementsAre("default", "", "open", "Open"));
    EXPECT_EQ(shown.hints.value(u"desktop-entry"_s), u"dev.tarnwick.Tarnwick"_s);
    EXPECT_EQ(shown.hints.value(u"sound-name"_s), u"message-new-instant"_s);
    EXPECT_EQ(shown.hints.value(u"x-dev.tarnwick.thread"_s), u"tarnwick.pull-requests"_s);
    EXPECT_EQ(shown.timeout, -1);
    EXPECT_EQ(shown.replacedId, 0U);
    EXPECT_EQ(server->capabilityQuestions, 1);
}

TEST_F(NotificationCentreTest, offersNoActionsToAServerWithoutThem)
{
    startServer();
    server->capabilities = {u"body"_s};
    deliver();
    EXPECT_THAT(server->shown.front().actions, IsEmpty());
    EXPECT_FALSE(server->shown.front().hints.contains(u"sound-name"_s));
    EXPECT_EQ(server->shown.front().body, "New pull request");
}

TEST_F(NotificationCentreTest, opensThePullRequestThatIsClickedWithTheToken)
{
    startAndDeliver();
    deliver(8);
    server->giveToken(server->shown[1].id, u"token-8"_s);
    server->invoke(server->shown[1].id, u"default"_s);
    server->close(server->shown[1].id);
    settle();
    EXPECT_THAT(
        opened(),
        ElementsAre(
            "launch /usr/bin/xdg-open [" + makePullRequest(8).url.text + "] token token-8"));
}

TEST_F(NotificationCentreTest, takesTheButtonForAClick)
{
    startAndDeliver();
    server->invoke(server->shown[0].id, u"open"_s);
    settle();
    EXPECT_THAT(opened(), SizeIs(1));
}

TEST_F(NotificationCentreTest, opensNothingWhenANotificationIsDismissed)
{
    startAndDeliver();
    server->close(server->shown[0].id);
    server->invoke(server->shown[0].id, u"default"_s);
    settle();
    EXPECT_THAT(opened(), IsEmpty());
}

TEST_F(NotificationCentreTest, opensNothingForOtherProgramsNotificationsAndActions)
{
    startAndDeliver();
    server->invoke(server->shown[0].id + 1, u"default"_s);
    server->invoke(server->shown[0].id, u"settings"_s);
    settle();
    EXPECT_THAT(opened(), IsEmpty());
}

TEST_F(NotificationCentreTest, believesNobodyButTheServer)
{
    startAndDeliver();
    QDBusConnection stranger = bus.connect();
    auto signal = QDBusMessage::createSignal(
        u"/org/freedesktop/Notifications"_s,
        u"org.freedesktop.Notifications"_s,
        u"ActionInvoked"_s);
    signal << server->shown[0].id << u"default"_s;
    ASSERT_TRUE(stranger.send(signal));
    // The bus has passed the signal on once it has answered the same stranger.
    ASSERT_TRUE(stranger.interface()->isServiceRegistered(u"org.freedesktop.Notifications"_s));
    settle();
    EXPECT_THAT(opened(), IsEmpty());
}

TEST_F(NotificationCentreTest, replacesAShownNotificationWithTheSameIdentifier)
{
    startAndDeliver();
    deliver(8);
    deliver(7);
    EXPECT_EQ(server->shown[1].replacedId, 0U);
    EXPECT_EQ(server->shown[2].replacedId, server->shown[0].id);
}

TEST_F(NotificationCentreTest, replacesNothingThatIsClosed)
{
    startAndDeliver();
    server->close(server->shown[0].id);
    settle();
    deliver();
    EXPECT_EQ(server->shown[1].replacedId, 0U);
}

TEST_F(NotificationCentreTest, forgetsTheNumbersOfAServerThatEnded)
{
    startAndDeliver();
    server.reset();
    startServer();
    server->capabilities = {};
    settleOwner();
    deliver(7);
    EXPECT_EQ(server->shown[0].replacedId, 0U);
    EXPECT_THAT(server->shown[0].actions, IsEmpty());
    server->invoke(server->shown[0].id, u"default"_s);
    settle();
    EXPECT_THAT(opened(), SizeIs(1));
}

TEST_F(NotificationCentreTest, goesToTheNextServerBeforeTheNewsOfTheLastOnesEnd)
{
    startAndDeliver();
    server.reset();
    startAndDeliver();
    ASSERT_THAT(server->shown, SizeIs(1));
    EXPECT_EQ(server->shown[0].replacedId, 0U);
    server->invoke(server->shown[0].id, u"default"_s);
    settle();
    EXPECT_THAT(opened(), SizeIs(1));
}

TEST_F(NotificationCentreTest, saysInASentenceThatTheServerRefused)
{
    startServer();
    server->refuses = true;
    EXPECT_EQ(problemOfDelivery(), "The notification service refused the request.");
}

TEST_F(NotificationCentreTest, isPermittedWhereAServerRuns)
{
    startServer();
    EXPECT_EQ(authorization(), Authorization::authorized);
    EXPECT_TRUE(isGranted());
}

TEST_F(NotificationCentreTest, isRefusedWhereThereIsNoServer)
{
    passSessionStart();
    EXPECT_EQ(authorization(), Authorization::denied);
    EXPECT_FALSE(isGranted());
    EXPECT_EQ(problemOfDelivery(), "There is no notification service on this desktop.");
}

TEST_F(NotificationCentreTest, waitsForAServerWhileTheSessionStarts)
{
    EXPECT_TRUE(isGrantedAfter([this] { startServer(); }));
}

TEST_F(NotificationCentreTest, givesUpWaitingOnceTheSessionMustHaveStarted)
{
    EXPECT_FALSE(isGrantedAfter([this] { passSessionStart(); }));
}

TEST_F(NotificationCentreTest, waitsNoLongerWhenTheTimeOfDayIsSetBack)
{
    clock->set(std::chrono::hours(-24));
    EXPECT_FALSE(isGrantedAfter([this] { passSessionStart(); }));
}

TEST_F(NotificationCentreTest, isRefusedWhereThereIsNoBus)
{
    begin(QDBusConnection::connectToBus(u"unix:path=/nonexistent/bus"_s, u"no-bus"_s));
    EXPECT_EQ(authorization(), Authorization::denied);
    EXPECT_FALSE(isGranted());
    EXPECT_EQ(problemOfDelivery(), "There is no notification service on this desktop.");
    QDBusConnection::disconnectFromBus(u"no-bus"_s);
}

TEST_F(NotificationCentreTest, isRefusedOnceTheBusHasEnded)
{
    startAndDeliver();
    bus.stop();
    EXPECT_EQ(authorization(), Authorization::denied);
    EXPECT_FALSE(isGranted());
}

TEST_F(NotificationCentreTest, outlivesWhoeverAskedForAnAnswer)
{
    startServer();
    std::optional<bool> answer;
    auto asking = keep(notifier->requestAuthorization(), &answer);
    notifier.reset();
    centre.reset();
    runToEnd(std::move(asking));
    EXPECT_EQ(answer, true);
}

TEST(NotificationServerThatCanBeStarted, countsAsPermissionUntilItFailsToStart)
{
    PrivateBus bus("org.freedesktop.Notifications");
    const auto clock = std::make_shared<FakeClock>();
    SystemPullRequestNotifier notifier(std::make_shared<NotificationCentre>(bus.connect(), clock));
    clock->advance(std::chrono::seconds(11));
    EXPECT_EQ(valueOf(notifier.authorization()), Authorization::authorized);
    EXPECT_FALSE(valueOf(notifier.requestAuthorization()));
}

}  // namespace
