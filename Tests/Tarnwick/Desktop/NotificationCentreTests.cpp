#include "Tarnwick/Desktop/NotificationCentre.h"

#include "Desktop/NotificationServer.h"
#include "Desktop/PrivateBus.h"
#include "Fakes/EventLoop.h"
#include "Fakes/FakeClock.h"
#include "Fakes/RecordingSurroundings.h"
#include "Support/PullRequests.h"
#include "Tarnwick/Desktop/SystemPullRequestNotifier.h"

#include <QDBusConnectionInterface>

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using TestSupport::makePullRequest;
using TestSupport::NotificationServer;
using TestSupport::PrivateBus;

using Authorization = NotificationAuthorization;

template<typename Value>
QCoro::Task<> keep(QCoro::Task<Value> task, std::optional<Value>* result)
{
    *result = co_await task;
}

/// The program on one bus with a scripted notification server, or with none.
class NotificationCentreTest : public testing::Test {
protected:
    NotificationCentreTest() { begin(bus.connect()); }

    ~NotificationCentreTest() override
    {
        server.reset();
        TestSupport::processEvents();
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

    Authorization authorization()
    {
        std::optional<Authorization> answer;
        TestSupport::runToEnd(keep(notifier->authorization(), &answer));
        return answer.value();
    }

    bool isGranted()
    {
        std::optional<bool> answer;
        TestSupport::runToEnd(keep(notifier->requestAuthorization(), &answer));
        return answer.value();
    }

    /// The program has run for longer than a session takes to start.
    void passSessionStart() { clock->advance(std::chrono::seconds(11)); }

    void deliver(std::int64_t number = 7)
    {
        TestSupport::runToEnd(notifier->notifyNew(makePullRequest(number)));
    }

    std::string problemOfDelivery()
    {
        try {
            deliver();
        } catch (const std::exception& error) {
            return error.what();
        }
        return "nothing was thrown";
    }

    /// What the user did has reached the program, because an answer sent after it has.
    void settle()
    {
        isGranted();
        TestSupport::processEvents();
    }

    /// The program knows who owns the server's name now, and has asked the owner nothing.
    void settleOwner()
    {
        authorization();
        TestSupport::processEvents();
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
    TestSupport::RecordingSurroundings desktop;
    std::shared_ptr<TestSupport::FakeClock> clock = std::make_shared<TestSupport::FakeClock>();
    std::unique_ptr<NotificationServer> server;
    std::shared_ptr<NotificationCentre> centre;
    std::unique_ptr<SystemPullRequestNotifier> notifier;
};

TEST_F(NotificationCentreTest, showsANotificationAsTheServerCan)
{
    startServer();
    TestSupport::runToEnd(notifier->notifyUnblocked(makePullRequest(7)));
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
    startServer();
    deliver(7);
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
    startServer();
    deliver();
    server->invoke(server->shown[0].id, u"open"_s);
    settle();
    EXPECT_THAT(opened(), SizeIs(1));
}

TEST_F(NotificationCentreTest, opensNothingWhenANotificationIsDismissed)
{
    startServer();
    deliver();
    server->close(server->shown[0].id);
    server->invoke(server->shown[0].id, u"default"_s);
    settle();
    EXPECT_THAT(opened(), IsEmpty());
}

TEST_F(NotificationCentreTest, opensNothingForOtherProgramsNotificationsAndActions)
{
    startServer();
    deliver();
    server->invoke(server->shown[0].id + 1, u"default"_s);
    server->invoke(server->shown[0].id, u"settings"_s);
    settle();
    EXPECT_THAT(opened(), IsEmpty());
}

TEST_F(NotificationCentreTest, believesNobodyButTheServer)
{
    startServer();
    deliver();
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
    startServer();
    deliver(7);
    deliver(8);
    deliver(7);
    EXPECT_EQ(server->shown[1].replacedId, 0U);
    EXPECT_EQ(server->shown[2].replacedId, server->shown[0].id);
}

TEST_F(NotificationCentreTest, replacesNothingThatIsClosed)
{
    startServer();
    deliver();
    server->close(server->shown[0].id);
    settle();
    deliver();
    EXPECT_EQ(server->shown[1].replacedId, 0U);
}

TEST_F(NotificationCentreTest, forgetsTheNumbersOfAServerThatEnded)
{
    startServer();
    deliver();
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
    startServer();
    deliver();
    server.reset();
    startServer();
    deliver();
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
    std::optional<bool> answer;
    auto asking = keep(notifier->requestAuthorization(), &answer);
    ASSERT_TRUE(TestSupport::eventually([&] { return !clock->sleepers().empty(); }));
    EXPECT_EQ(answer, std::nullopt);
    startServer();
    TestSupport::runToEnd(std::move(asking));
    EXPECT_EQ(answer, true);
}

TEST_F(NotificationCentreTest, givesUpWaitingOnceTheSessionMustHaveStarted)
{
    std::optional<bool> answer;
    auto asking = keep(notifier->requestAuthorization(), &answer);
    ASSERT_TRUE(TestSupport::eventually([&] { return !clock->sleepers().empty(); }));
    passSessionStart();
    TestSupport::runToEnd(std::move(asking));
    EXPECT_EQ(answer, false);
}

TEST_F(NotificationCentreTest, waitsNoLongerWhenTheTimeOfDayIsSetBack)
{
    clock->set(std::chrono::hours(-24));
    std::optional<bool> answer;
    auto asking = keep(notifier->requestAuthorization(), &answer);
    ASSERT_TRUE(TestSupport::eventually([&] { return !clock->sleepers().empty(); }));
    passSessionStart();
    TestSupport::runToEnd(std::move(asking));
    EXPECT_EQ(answer, false);
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
    startServer();
    deliver();
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
    TestSupport::runToEnd(std::move(asking));
    EXPECT_EQ(answer, true);
}

TEST(NotificationServerThatCanBeStarted, countsAsPermissionUntilItFailsToStart)
{
    PrivateBus bus("org.freedesktop.Notifications");
    const auto clock = std::make_shared<TestSupport::FakeClock>();
    SystemPullRequestNotifier notifier(std::make_shared<NotificationCentre>(bus.connect(), clock));
    clock->advance(std::chrono::seconds(11));
    std::optional<Authorization> authorization;
    TestSupport::runToEnd(keep(notifier.authorization(), &authorization));
    EXPECT_EQ(authorization, Authorization::authorized);
    std::optional<bool> isGranted;
    TestSupport::runToEnd(keep(notifier.requestAuthorization(), &isGranted));
    EXPECT_EQ(isGranted, false);
}

}  // namespace
