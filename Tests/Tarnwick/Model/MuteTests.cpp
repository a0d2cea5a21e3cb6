#include "Fakes/ModelFixture.h"
#include "PullRequestKit/StackBuilder.h"
#include "Tarnwick/Model/Mutes.h"

namespace {

using namespace TestSupport;

const Date now = date("2024-05-02T08:00:00Z");

Mutes one(const PullRequest& pullRequest, const Mute& mute)
{
    return {{pullRequest.id.storageKey(), mute}};
}

TEST(Mutes, lastUntilThePullRequestChanges)
{
    const PullRequest pullRequest = makePullRequest(1);
    const Mutes mutes = one(pullRequest, MutedUntilChange{seenNow(pullRequest, nullptr), now});
    EXPECT_NE(muteOf(pullRequest, mutes), nullptr);
    EXPECT_EQ(muteOf(makePullRequest(2), mutes), nullptr);

    PullRequest updated = pullRequest;
    updated.updatedAt += 1s;
    PullRequest failed = pullRequest;
    failed.checks = {0, 1, 1};
    PullRequest unknown = pullRequest;
    unknown.mergeability = PullRequestMergeability::unknown;
    EXPECT_EQ(muteOf(updated, mutes), nullptr);
    EXPECT_EQ(muteOf(failed, mutes), nullptr) << "checks move no date";
    EXPECT_NE(muteOf(unknown, mutes), nullptr) << "which says nothing of the pull request";

    EXPECT_THAT(withoutEnded(mutes, std::vector{pullRequest}, now), SizeIs(1));
    EXPECT_THAT(withoutEnded(mutes, std::vector{failed}, now), IsEmpty());
    EXPECT_THAT(withoutEnded(mutes, now + 24h * 365), SizeIs(1)) << "nothing was listed";
}

TEST(Mutes, lastUntilTheirTime)
{
    const PullRequest pullRequest = makePullRequest(1);
    const Mutes mutes = one(pullRequest, MutedUntilTime{now + 24h});
    PullRequest updated = pullRequest;
    updated.updatedAt = now;
    EXPECT_NE(muteOf(updated, mutes), nullptr);
    EXPECT_THAT(withoutEnded(mutes, now + 24h - 1s), SizeIs(1));
    EXPECT_THAT(withoutEnded(mutes, now + 24h), IsEmpty());
    EXPECT_EQ(nextMuteEnd(mutes), now + 24h);
    EXPECT_EQ(nextMuteEnd({}), std::nullopt);
}

TEST(Mutes, lastNoLongerBecauseTheClockWasSetBack)
{
    const Mutes mutes = one(makePullRequest(1), MutedUntilTime{now + 24h * 400});
    EXPECT_EQ(withoutEnded(mutes, now), one(makePullRequest(1), MutedUntilTime{now + 24h}));
}

TEST(Mutes, ofWhatIsListedNoMoreAreForgottenAfterNinetyDays)
{
    const PullRequest pullRequest = makePullRequest(1);
    const Mutes mutes = one(pullRequest, MutedUntilChange{seenNow(pullRequest, nullptr), now});
    const Mutes listed = withoutEnded(mutes, std::vector{pullRequest}, now + 24h);
    EXPECT_EQ(std::get<MutedUntilChange>(listed.begin()->second).listedAt, now + 24h);
    EXPECT_EQ(withoutEnded(mutes, std::vector{pullRequest}, now + 23h), mutes) << "to the day";
    EXPECT_THAT(withoutEnded(listed, std::vector<PullRequest>(), now + 24h * 91), SizeIs(1));
    EXPECT_THAT(withoutEnded(listed, std::vector<PullRequest>(), now + 24h * 91 + 1s), IsEmpty());
}

TEST(Mutes, compareAuthorsWithoutLetterCase)
{
    const Logins logins{"Otter-Bot", "mira-k"};
    EXPECT_TRUE(logins.contains("otter-bOT"));
    EXPECT_TRUE(logins.contains("MIRA-K"));
    EXPECT_FALSE(logins.contains("mira"));
    EXPECT_FALSE(logins.contains(""));
}

PullRequest by(const char* author, std::int64_t number)
{
    return with(makePullRequest(number), &PullRequest::author, author);
}

TEST(MutedRows, areHiddenBeforeAnyFilterHidesThem)
{
    Settings settings;
    settings.selectedRepositories = {"octo/tools"};
    PullRequest draft = by("otter-bot", 1);
    draft.isDraft = true;
    EXPECT_EQ(sightOf(draft, settings), Sight::hiddenByStatus);
    settings.mutedAuthors = {"Otter-Bot"};
    EXPECT_EQ(sightOf(draft, settings), Sight::authorMuted);
    settings.mutes = one(draft, MutedUntilTime{now});
    EXPECT_EQ(sightOf(draft, settings), Sight::muted);
    settings.selectedRepositories.clear();
    EXPECT_EQ(sightOf(draft, settings), Sight::otherRepository);
}

TEST(MutedRows, leaveTheirStackWhereItIs)
{
    // 1 below 2, on which 3 and 4 stand, 5 on 4; 6 beside them.
    std::vector<PullRequest> all{
        makePullRequest(1, "one", "main"),
        makePullRequest(2, "two", "one"),
        makePullRequest(3, "three", "two"),
        makePullRequest(4, "four", "two"),
        makePullRequest(5, "five", "four"),
        makePullRequest(6, "six", "main")};
    all[5].updatedAt -= std::chrono::hours(1);
    Settings settings;
    settings.selectedRepositories = {"octo/tools"};
    using Places = std::vector<std::pair<std::int64_t, std::int64_t>>;  // Number and depth.
    const auto placesWithout = [&](std::vector<std::size_t> muted) {
        settings.mutes.clear();
        for (const std::size_t place : muted) {
            settings.mutes.merge(one(all[place], MutedUntilTime{now}));
        }
        const FilteredRows list = filteredRows(all, settings);
        EXPECT_EQ(list.hidden, (HiddenCounts{.filters = 0, .muted = muted.size()}));
        EXPECT_EQ(rowsWithHidden(all, settings), StackBuilder::rows(all));
        Places places;
        for (const PullRequestRow& row : list.rows) {
            places.emplace_back(row.id().number, row.depth);
        }
        return places;
    };
    const Places whole = placesWithout({});
    ASSERT_EQ(whole, (Places{{1, 0}, {2, 1}, {3, 2}, {4, 2}, {5, 3}, {6, 0}}));
    EXPECT_EQ(placesWithout({1}), (Places{{1, 0}, {3, 1}, {4, 1}, {5, 2}, {6, 0}}));
    EXPECT_EQ(placesWithout({0}), (Places{{2, 0}, {3, 1}, {4, 1}, {5, 2}, {6, 0}}));
    EXPECT_EQ(placesWithout({0, 1}), (Places{{3, 0}, {4, 0}, {5, 1}, {6, 0}}));
    EXPECT_EQ(placesWithout({4}), (Places{{1, 0}, {2, 1}, {3, 2}, {4, 2}, {6, 0}}));
}

TEST(MutedRows, holdNoStackTogetherThatAFilterTakesApart)
{
    std::vector<PullRequest> all{
        makePullRequest(1, "one", "main"), makePullRequest(2, "two", "one")};
    all[0].isDraft = true;
    Settings settings;
    settings.selectedRepositories = {"octo/tools"};
    const auto before = filteredRows(all, settings).rows;
    settings.mutes = one(all[0], MutedUntilTime{now});
    EXPECT_EQ(filteredRows(all, settings).rows, before);
    EXPECT_EQ(filteredRows(all, settings).hidden, (HiddenCounts{.filters = 0, .muted = 1}));
}

TEST(MutedRows, areCountedApart)
{
    EXPECT_EQ(hiddenSentence({.filters = 9, .muted = 2}), "9 are hidden by filters, 2 are muted.");
    EXPECT_EQ(hiddenSentence({.filters = 1, .muted = 1}), "1 is hidden by filters, 1 is muted.");
    EXPECT_EQ(hiddenSentence({.filters = 0, .muted = 1}), "1 is muted.");
    EXPECT_EQ(hiddenSentence({.filters = 1, .muted = 0}), "1 is hidden by filters.");
    EXPECT_EQ(hiddenSentence({}), "");
}

class Muting : public ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        provider->setRepositories({"octo/tools"});
        provider->setPullRequests(all);
        startAndRefresh();
    }

    Settings storedSettings() { return SettingsStore(*defaults).load(); }

    const PullRequest& first() const { return all[0]; }

    std::vector<PullRequest> all{by("mira-k", 1), by("otter-bot", 2), by("Otter-Bot", 3)};
};

TEST_F(Muting, takesARowOutUntilItChanges)
{
    model->mutes().untilChange(first());
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(2, 3));
    EXPECT_EQ(model->list().hidden(), (HiddenCounts{.filters = 0, .muted = 1}));
    EXPECT_EQ(model->list().arrangedWithHidden()->rows.size(), 3U);
    refresh();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(2, 3));
    start();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(2, 3)) << "after a restart";

    all[0].checks = {0, 2, 1};
    provider->setPullRequests(all);
    refresh();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3));
    EXPECT_EQ(model->list().hidden(), HiddenCounts());
    all[0].checks = {};
    provider->setPullRequests(all);
    refresh();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3)) << "it has ended for good";
    EXPECT_THAT(storedSettings().mutes, IsEmpty());
}

TEST_F(Muting, storesEachMuteUnderAKeyOfItsOwn)
{
    model->mutes().untilChange(first());
    model->mutes().forADay(all[1]);
    model->mutes().setAuthor("mira-k", true);
    EXPECT_EQ(
        defaults->values.at("mutes.pullRequest.github|github.com|octo/tools|1"),
        "2024-05-02T08:00:00Z, 2024-05-01T12:00:00Z, open, ready, mergeable, none, 0/0, 0/0/0");
    EXPECT_EQ(
        readDate(*defaults, "mutes.pullRequest.github|github.com|octo/tools|2"),
        date("2024-05-03T08:00:00Z"));
    EXPECT_EQ(defaults->values.at("mutes.authors"), "mira-k");
    model->mutes().unmute(first());
    model->mutes().unmute(all[1]);
    EXPECT_THAT(defaults->keys("mutes.pullRequest."), IsEmpty());
}

TEST_F(Muting, endsByItselfAfterADay)
{
    const auto before = clock->sleepers().size();
    model->mutes().forADay(first());
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(2, 3));
    EXPECT_THAT(model->mutes().mutedUntil(first()), Optional(date("2024-05-03T08:00:00Z")));
    EXPECT_EQ(clock->sleepers().size(), before + 1) << "one timer, whatever is muted";
    model->mutes().forADay(all[1]);
    EXPECT_EQ(clock->sleepers().size(), before + 1);
    provider->setError("error connecting to api.github.com");
    clock->advance(24h - 1s);
    EXPECT_THAT(shownNumbers(), ElementsAre(3));
    clock->advance(1s);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3)) << "without a refresh";
    EXPECT_THAT(storedSettings().mutes, IsEmpty());
    EXPECT_EQ(model->mutes().mutedUntil(first()), std::nullopt);
}

TEST_F(Muting, thatEndedWhileTheProgramDidNotRunHasEndedAtTheStart)
{
    model->mutes().forADay(first());
    model.reset();
    clock->advance(25h);
    start();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3));
}

TEST_F(Muting, outlastsNoClockThatWasSetBack)
{
    clock->set(24h * 365);
    model->mutes().forADay(first());
    model->setPollingInterval(PollingInterval::oneHour);
    clock->set(-24h * 365);
    refresh();
    EXPECT_THAT(model->mutes().mutedUntil(first()), Optional(date("2024-05-03T08:00:00Z")));
    clock->advance(24h);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3));
}

TEST_F(Muting, ofAnAuthorTakesAllOfHisAndLastsUntilItIsTakenBack)
{
    model->mutes().setAuthor("OTTER-BOT", true);
    EXPECT_THAT(shownNumbers(), ElementsAre(1));
    EXPECT_EQ(model->list().hidden(), (HiddenCounts{.filters = 0, .muted = 2}));
    EXPECT_EQ(model->list().sightOf(all[2]), Sight::authorMuted);
    model->resetFilters();
    model->toggleStatus(StatusFilter::draft);
    model->resetFilters();
    EXPECT_THAT(shownNumbers(), ElementsAre(1)) << "mutes are no filters";
    model->mutes().setAuthor("otter-bot", false);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3));
}

TEST_F(Muting, followsAnotherProcess)
{
    SettingsStore(*defaults).change([](Settings& settings) { settings.mutedAuthors = {"mira-k"}; });
    model->readSettingsAgain();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(2, 3));
    SettingsStore(*defaults).change([&](Settings& settings) {
        settings.mutedAuthors.clear();
        settings.mutes = one(all[1], MutedUntilTime{clock->now() + 1h});
    });
    model->readSettingsAgain();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 3));
    model->setPollingInterval(PollingInterval::oneHour);
    clock->advance(1h);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3));
}

TEST_F(Muting, passesOverWhatMeansNothing)
{
    const std::string key = "mutes.pullRequest.github|github.com|octo/tools|1";
    for (const char* const stored :
         {"2024-05-03T08:00:00Z", "true", "@Empty()", "2024-05-02T08:00:00Z, open"}) {
        defaults->values.insert_or_assign(key, stored);
        defaults->values.insert_or_assign("mutes.authors", "\"\", nobody");
        model->readSettingsAgain();
        EXPECT_THAT(model->settings().mutes, IsEmpty());
        EXPECT_THAT(model->settings().mutedAuthors, ElementsAre("nobody"));
        EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3));
    }
}

}  // namespace
