#pragma once

#include "Fakes/EventLoop.h"
#include "Fakes/FakeClock.h"
#include "Fakes/FakeLoginItem.h"
#include "Fakes/FakeMachineEvents.h"
#include "Fakes/FakeNotifier.h"
#include "Fakes/FakeProvider.h"
#include "Fakes/MemoryDefaultsStore.h"
#include "Fakes/RecordingSurroundings.h"
#include "Support/PullRequests.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <QTemporaryDir>

namespace TestSupport {

/// A model among fakes, with a cache file in a folder of its own. Tests arrange the fakes, then
/// `start` the model.
class ModelTest : public testing::Test {
protected:
    using Kind = MenuState::Kind;

    ~ModelTest() override;

    /// Makes the model; a second call starts the program anew on the same settings and cache.
    void start();

    void startAndRefresh();

    /// What `start` gives the model.
    PullRequestMenuModel::Collaborators collaborators() const;

    /// Selects octo/tools as a user did in an earlier run.
    void selectTools();

    /// Runs one refresh to its end.
    void refresh();

    /// Opens the list and waits until its request for pull requests waits.
    void openAndHold();

    /// Lets the time of the next poll come and waits until its request for pull requests waits.
    void pollAndHold();

    /// Lets held requests go and waits until no refresh runs.
    void releaseAndSettle();

    bool settle();

    /// How often the model sends a signal from now on.
    template<typename Signal>
    std::shared_ptr<const int> countOf(Signal signal) const
    {
        const auto count = std::make_shared<int>(0);
        QObject::connect(model.get(), signal, model.get(), [count] { ++*count; });
        return count;
    }

    /// Waits until this many requests for pull requests were answered.
    bool refreshed(std::size_t times);

    std::vector<std::int64_t> shownNumbers() const;
    PullRequestDiskCache cache() const;

    QTemporaryDir folder;
    std::shared_ptr<FakeProvider> provider = std::make_shared<FakeProvider>();
    std::shared_ptr<MemoryDefaultsStore> defaults = std::make_shared<MemoryDefaultsStore>();
    std::shared_ptr<FakeNotifier> notifier = std::make_shared<FakeNotifier>();
    std::shared_ptr<FakeLoginItem> loginItem = std::make_shared<FakeLoginItem>();
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    std::optional<BlockedPullRequestsFile> blockedFile = BlockedPullRequestsFile::beside(cache());
    std::optional<KnownTurnsFile> turnsFile = KnownTurnsFile::beside(cache());
    std::shared_ptr<FakeMachineEvents> machine = std::make_shared<FakeMachineEvents>();
    RecordingSurroundings desktop;  ///< As it is when the model starts.
    std::unique_ptr<PullRequestMenuModel> model;
};

}  // namespace TestSupport
