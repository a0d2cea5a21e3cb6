#include "Fakes/ModelFixture.h"
#include "Tarnwick/Desktop/NotificationPresentationDelegate.h"

#include <QPromise>

namespace {

using namespace TestSupport;

/// A pull request that came into being after the first refresh of these tests.
PullRequest createdLater(std::int64_t number)
{
    return with(makePullRequest(number), &PullRequest::createdAt, date("2024-05-02T08:00:01Z"));
}

PullRequest blocked(std::int64_t number)
{
    return with(
        makePullRequest(number), &PullRequest::mergeability, PullRequestMergeability::conflicting);
}

PullRequest withChecks(std::int64_t number, ProgressCount checks)
{
    return with(makePullRequest(number), &PullRequest::checks, checks);
}

class Notifications : public ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        provider->setRepositories({"octo/tools"});
        provider->setPullRequests({makePullRequest(1)});
    }

    void startWithBothSettings()
    {
        SettingsStore(*defaults).change([](Settings& settings) {
            settings.newPullRequestNotificationsEnabled = true;
            settings.unblockedNotificationsEnabled = true;
        });
        start();
    }

    /// Starts with both settings and the first list, from which changes count.
    void startWithBaseline()
    {
        startWithBothSettings();
        refresh();
    }

    void startWith(std::vector<PullRequest> pullRequests)
    {
        startWithBothSettings();
        refreshWith(std::move(pullRequests));
    }

    void refreshWith(std::vector<PullRequest> pullRequests)
    {
        provider->setPullRequests(std::move(pullRequests));
        clock->advance(1s);
        refresh();
        processEvents();
    }
};

TEST_F(Notifications, announceNothingAtTheFirstRefresh)
{
    startWith({createdLater(1)});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(Notifications, announceWhatCameIntoBeingSinceTheLastRefresh)
{
    startWithBaseline();
    refreshWith({makePullRequest(1), createdLater(2), createdLater(3)});
    EXPECT_THAT(notifier->shown, UnorderedElementsAre("new 2", "new 3"));
    refreshWith({makePullRequest(1), createdLater(2), createdLater(3)});
    EXPECT_EQ(notifier->shown.size(), 2U);
}

TEST_F(Notifications, doNotAnnounceWhatExistedBeforeTheBaseline)
{
    startWithBaseline();
    auto reopened = makePullRequest(2);
    reopened.createdAt = date("2024-05-02T08:00:00Z");
    auto undated = makePullRequest(3);
    undated.createdAt = std::nullopt;
    refreshWith({makePullRequest(1), reopened, undated});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(Notifications, doNotAnnounceWhatAFilterHides)
{
    startWithBaseline();
    const auto draft = with(createdLater(2), &PullRequest::isDraft, true);
    refreshWith({makePullRequest(1), draft});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(Notifications, doNotAnnounceWhatAppearsThroughAChangedFilter)
{
    startWithBaseline();
    model->toggleStatus(StatusFilter::draft);
    const auto draft = with(createdLater(2), &PullRequest::isDraft, true);
    refreshWith({makePullRequest(1), draft});
    EXPECT_THAT(notifier->shown, IsEmpty());
    const auto later = with(createdLater(3), &PullRequest::createdAt, date("2024-05-02T08:00:05Z"));
    refreshWith({makePullRequest(1), draft, later});
    EXPECT_THAT(notifier->shown, ElementsAre("new 3"));
}

struct FilterChange {
    const char* name;
    std::function<void(PullRequestMenuModel&)> change;
};

/// A change in what is looked at: the next refresh announces nothing, the one after it does.
class NotificationBaselines
    : public Notifications
    , public WithParamInterface<FilterChange> {};

TEST_P(NotificationBaselines, areSetAnewByAChange)
{
    startWithBaseline();
    provider->setPullRequests({makePullRequest(1), createdLater(2)});
    clock->advance(1s);
    GetParam().change(*model);
    ASSERT_TRUE(settle());
    refresh();
    processEvents();
    EXPECT_THAT(notifier->shown, IsEmpty());
    const auto later = with(createdLater(3), &PullRequest::createdAt, date("2024-05-02T08:00:05Z"));
    refreshWith({makePullRequest(1), createdLater(2), later});
    EXPECT_THAT(notifier->shown, ElementsAre("new 3"));
}

INSTANTIATE_TEST_SUITE_P(
    Filters,
    NotificationBaselines,
    Values(
        FilterChange{"ofChecks", [](auto& model) { model.toggleChecks(ChecksFilter::pending); }},
        FilterChange{
            "ofReviews", [](auto& model) { model.toggleReviewFilter(ReviewFilter::none); }},
        FilterChange{
            "ofMergeability",
            [](auto& model) { model.toggleMergeability(MergeabilityFilter::unknown); }},
        FilterChange{
            "ofReviewers", [](auto& model) { model.setReviewerFilter(ReviewerFilter::any); }}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(Notifications, doNotAnnounceWhatAppearsThroughAChangedSelection)
{
    startWithBaseline();
    model->selectRepositories({"octo/site"}, true);
    auto other = createdLater(2);
    other.id.repository = "octo/site";
    refreshWith({makePullRequest(1), other});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(Notifications, announceWhatBecameUnblocked)
{
    startWith({blocked(1), blocked(2), makePullRequest(3)});
    refreshWith({makePullRequest(1), blocked(2), makePullRequest(3), makePullRequest(4)});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 1"));
}

TEST_F(Notifications, announceOnceThatFailedChecksPassAfterTheyRanAgain)
{
    startWith({withChecks(1, {0, 2, 1})});
    refreshWith({withChecks(1, {1, 2, 0})});
    EXPECT_THAT(notifier->shown, IsEmpty());
    refreshWith({withChecks(1, {2, 2, 0})});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 1"));
    refreshWith({withChecks(1, {1, 2, 0})});
    refreshWith({withChecks(1, {2, 2, 0})});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 1"));
    refreshWith({withChecks(1, {1, 2, 1})});
    refreshWith({withChecks(1, {2, 2, 0})});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 1", "unblocked 1"));
}

TEST_F(Notifications, announceWhatAnotherProgramFoundUnblockedBefore)
{
    startWith({blocked(1), blocked(2)});
    model.reset();
    const auto file = std::exchange(blockedFile, std::nullopt);
    const auto ours = std::exchange(notifier, std::make_shared<FakeNotifier>());
    start();
    refreshWith({makePullRequest(1), blocked(2), blocked(3)});
    model.reset();
    blockedFile = file;
    notifier = ours;
    start();
    refreshWith({makePullRequest(1), blocked(2), makePullRequest(3)});
    EXPECT_THAT(notifier->shown, UnorderedElementsAre("unblocked 1", "unblocked 3"));
}

TEST_F(Notifications, announceWhatLeftTheListBlockedAndComesBackUnblocked)
{
    startWith({blocked(1)});
    refreshWith({});
    model->toggleChecks(ChecksFilter::pass);
    refreshWith({makePullRequest(1)});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 1"));
}

TEST_F(Notifications, areNotCaughtUpWithWhenTheyAreSwitchedOn)
{
    startWith({blocked(1), blocked(2)});
    runToEnd(model->toggleUnblockedNotifications());
    refreshWith({makePullRequest(1), blocked(2)});
    runToEnd(model->toggleUnblockedNotifications());
    refreshWith({makePullRequest(1), makePullRequest(2)});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 2"));
}

TEST_F(Notifications, sayOfAnUnblockedOneWhatTheNextRefreshOvertook)
{
    startWith({blocked(1), blocked(2)});
    notifier->hold();
    refreshWith({makePullRequest(1), makePullRequest(2)});
    EXPECT_EQ(notifier->shown.size(), 1U);
    refreshWith({makePullRequest(1), makePullRequest(2)});
    notifier->release();
    processEvents();
    EXPECT_THAT(notifier->shown, UnorderedElementsAre("unblocked 1", "unblocked 2"));
}

TEST_F(Notifications, doNotTakeANoLongerBlockedDraftForUnblocked)
{
    startWith({blocked(1)});
    const auto draft = with(makePullRequest(1), &PullRequest::isDraft, true);
    refreshWith({draft});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(Notifications, followTheirOwnSettings)
{
    SettingsStore(*defaults).change(
        [](Settings& settings) { settings.unblockedNotificationsEnabled = true; });
    start();
    refreshWith({blocked(1)});
    refreshWith({makePullRequest(1), createdLater(2)});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 1"));
}

TEST_F(Notifications, neverAskForPermissionWithBothSettingsOff)
{
    startAndRefresh();
    refreshWith({createdLater(2)});
    EXPECT_EQ(notifier->permissionRequests, 0);
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(Notifications, checkThePermissionOnceAtTheStart)
{
    startWithBothSettings();
    processEvents();
    refresh();
    EXPECT_EQ(notifier->permissionRequests, 1);
    EXPECT_TRUE(model->settings().unblockedNotificationsEnabled);
}

TEST_F(Notifications, areTurnedOffWhenThePermissionIsGone)
{
    notifier->isGranted = false;
    startWithBothSettings();
    processEvents();
    EXPECT_FALSE(model->settings().unblockedNotificationsEnabled);
    EXPECT_FALSE(model->settings().newPullRequestNotificationsEnabled);
    const Settings stored = SettingsStore(*defaults).load();
    EXPECT_FALSE(stored.unblockedNotificationsEnabled);
    EXPECT_FALSE(stored.newPullRequestNotificationsEnabled);
    EXPECT_FALSE(model->notificationSettingsRequired());
}

TEST_F(Notifications, waitForTheCheckOfThePermission)
{
    notifier->hold();
    startWithBaseline();
    refreshWith({makePullRequest(1), createdLater(2)});
    EXPECT_THAT(notifier->shown, IsEmpty());
    notifier->release();
    EXPECT_TRUE(eventually([&] { return !notifier->shown.empty(); }));
    EXPECT_THAT(notifier->shown, ElementsAre("new 2"));
}

TEST_F(Notifications, dropWhatTheNextRefreshOvertakes)
{
    startWithBaseline();
    notifier->hold();
    refreshWith({makePullRequest(1), createdLater(2), createdLater(3)});
    EXPECT_EQ(notifier->shown.size(), 1U);
    refreshWith({makePullRequest(1), createdLater(2), createdLater(3)});
    notifier->release();
    processEvents();
    EXPECT_EQ(notifier->shown.size(), 1U);
}

TEST_F(Notifications, sayWhyANewOneCouldNotBeDelivered)
{
    startWithBaseline();
    notifier->error = "No server.";
    refreshWith({makePullRequest(1), createdLater(2)});
    EXPECT_EQ(
        model->settingsError(),
        "A new pull request notification could not be delivered: No server.");
}

TEST_F(Notifications, sayWhyAnUnblockedOneCouldNotBeDelivered)
{
    startWith({blocked(1)});
    notifier->error = "No server.";
    refreshWith({makePullRequest(1)});
    EXPECT_EQ(
        model->settingsError(), "An unblocked notification could not be delivered: No server.");
}

TEST_F(Notifications, areSwitchedOnWithPermission)
{
    start();
    runToEnd(model->toggleUnblockedNotifications());
    EXPECT_TRUE(model->settings().unblockedNotificationsEnabled);
    EXPECT_FALSE(model->settings().newPullRequestNotificationsEnabled);
    EXPECT_TRUE(SettingsStore(*defaults).load().unblockedNotificationsEnabled);
    EXPECT_EQ(notifier->permissionRequests, 1);
    runToEnd(model->toggleNewPullRequestNotifications());
    EXPECT_TRUE(SettingsStore(*defaults).load().newPullRequestNotificationsEnabled);
}

TEST_F(Notifications, areSwitchedOffWithoutAsking)
{
    startWithBothSettings();
    processEvents();
    runToEnd(model->toggleNewPullRequestNotifications());
    EXPECT_FALSE(model->settings().newPullRequestNotificationsEnabled);
    EXPECT_FALSE(SettingsStore(*defaults).load().newPullRequestNotificationsEnabled);
    EXPECT_TRUE(model->settings().unblockedNotificationsEnabled);
    EXPECT_EQ(notifier->permissionRequests, 1);
}

TEST_F(Notifications, pointToTheDesktopsSettingsWhenPermissionIsRefused)
{
    notifier->isGranted = false;
    start();
    runToEnd(model->toggleUnblockedNotifications());
    EXPECT_FALSE(model->settings().unblockedNotificationsEnabled);
    EXPECT_EQ(defaults->values.at("notifications.unblocked"), "false");
    EXPECT_TRUE(model->notificationSettingsRequired());
    model->dismissNotificationSettingsRequired();
    EXPECT_FALSE(model->notificationSettingsRequired());
}

TEST_F(Notifications, sayWhyTheyCouldNotBeSwitchedOn)
{
    notifier->error = "No bus.";
    start();
    runToEnd(model->toggleUnblockedNotifications());
    EXPECT_EQ(model->settingsError(), "Notifications could not be enabled: No bus.");
    EXPECT_FALSE(model->settings().unblockedNotificationsEnabled);
    EXPECT_FALSE(model->notificationSettingsRequired());
    notifier->error.clear();
    runToEnd(model->toggleUnblockedNotifications());
    EXPECT_EQ(model->settingsError(), std::nullopt);
    EXPECT_TRUE(model->settings().unblockedNotificationsEnabled);
}

TEST_F(Notifications, surviveTheEndOfTheModelWhilePermissionIsAskedFor)
{
    notifier->hold();
    start();
    const auto toggling = model->toggleUnblockedNotifications();
    model.reset();
    notifier->release();
    processEvents();
    EXPECT_FALSE(SettingsStore(*defaults).load().unblockedNotificationsEnabled);
}

TEST_F(Notifications, countAsAVisitWhenTheyAreOpened)
{
    auto parts = collaborators();
    const auto delegate = std::make_shared<NotificationPresentationDelegate>(parts.navigation);
    parts.notificationDelegate = delegate;
    model = std::make_unique<PullRequestMenuModel>(std::move(parts));
    refreshWith({makePullRequest(1), makePullRequest(2)});
    const auto click = [&](const PullRequest& pullRequest) {
        delegate->didReceive({"default", {{"pullRequestURL", pullRequest.url.text}}, {}});
        processEvents();
    };
    click(makePullRequest(1));
    click(makePullRequest(3));
    EXPECT_EQ(model->visits().lastVisited(makePullRequest(1).id), clock->now());
    EXPECT_EQ(model->visits().lastVisited(makePullRequest(2).id), std::nullopt);
    EXPECT_EQ(model->visits().lastVisited(makePullRequest(3).id), std::nullopt);
    model.reset();
    click(makePullRequest(2));
}

}  // namespace
