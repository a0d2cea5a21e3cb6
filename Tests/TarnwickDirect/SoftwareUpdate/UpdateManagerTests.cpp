#include "TarnwickDirect/UpdateManager.h"

#include "Fakes/EventLoop.h"

#include <QThread>

#include <thread>

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;
using enum UpdateAvailability;

class FakeController final : public UpdaterController {
public:
    bool canCheckForUpdates() const override { return canCheck; }

    void checkForUpdates() override
    {
        ++checks;
        if (onCheck) {
            onCheck();
        }
    }

    void checkInBackground() override {}

    void bringToFront() override { ++presentations; }

    void stop() override { ++stops; }

    void set(bool newCanCheck)
    {
        canCheck = newCanCheck;
        Q_EMIT canCheckForUpdatesChanged(newCanCheck);
    }

    bool canCheck = false;
    std::function<void()> onCheck;
    int checks = 0;
    int presentations = 0;
    int stops = 0;
};

class UpdateManagerTest : public testing::Test {
protected:
    void start(bool canCheck = false)
    {
        manager = std::make_unique<UpdateManager>([&](UpdaterDelegate& newDelegate) {
            delegate = &newDelegate;
            auto made = std::make_unique<FakeController>();
            made->canCheck = canCheck;
            controller = made.get();
            return made;
        });
        observe();
    }

    void startWithoutUpdater()
    {
        manager = std::make_unique<UpdateManager>([](UpdaterDelegate&) { return nullptr; });
        observe();
    }

    void observe()
    {
        QObject::connect(manager.get(), &UpdateManager::canCheckForUpdatesChanged, [this] {
            canCheckValues.push_back(manager->canCheckForUpdates());
        });
        QObject::connect(manager.get(), &UpdateManager::updateAvailabilityChanged, [this] {
            EXPECT_EQ(QThread::currentThread(), manager->thread());
            availabilities.push_back(manager->updateAvailability());
        });
    }

    std::unique_ptr<UpdateManager> manager;
    UpdaterDelegate* delegate = nullptr;
    FakeController* controller = nullptr;
    std::vector<bool> canCheckValues;
    std::vector<UpdateAvailability> availabilities;
};

TEST_F(UpdateManagerTest, casesStandInTheirOrder)
{
    EXPECT_LT(unknown, checking);
    EXPECT_LT(checking, available);
    EXPECT_LT(available, unavailable);
}

TEST_F(UpdateManagerTest, knowsNothingAtFirst)
{
    start(true);
    EXPECT_FALSE(manager->canCheckForUpdates());
    EXPECT_EQ(manager->updateAvailability(), unknown);
    EXPECT_TRUE(manager->hasUpdater());
    EXPECT_EQ(controller->checks, 0);
}

TEST_F(UpdateManagerTest, takesTheInitialValue)
{
    start(true);
    processEvents();
    EXPECT_TRUE(manager->canCheckForUpdates());
    EXPECT_THAT(canCheckValues, ElementsAre(true));
}

TEST_F(UpdateManagerTest, takesEveryNewValueOnTheEventLoop)
{
    start();
    processEvents();
    EXPECT_FALSE(manager->canCheckForUpdates());
    controller->set(true);
    controller->set(false);
    controller->set(true);
    EXPECT_FALSE(manager->canCheckForUpdates());
    processEvents();
    EXPECT_THAT(canCheckValues, ElementsAre(true, false, true));
}

TEST_F(UpdateManagerTest, aValueThatChangesAtOnceComesAfterTheInitialOne)
{
    start(true);
    controller->set(false);
    processEvents();
    EXPECT_FALSE(manager->canCheckForUpdates());
    EXPECT_THAT(canCheckValues, ElementsAre(true, false));
}

TEST_F(UpdateManagerTest, anActionOfTheUserChecks)
{
    start();
    manager->checkForUpdates();
    EXPECT_EQ(manager->updateAvailability(), checking);
    EXPECT_EQ(controller->checks, 1);
}

TEST_F(UpdateManagerTest, isCheckingBeforeTheUpdaterIsAsked)
{
    start();
    UpdateAvailability seen = unknown;
    controller->onCheck = [&] { seen = manager->updateAvailability(); };
    manager->checkForUpdates();
    EXPECT_EQ(seen, checking);
}

TEST_F(UpdateManagerTest, aCheckOfTheUserFindsAnUpdateOrNone)
{
    start();
    manager->checkForUpdates();
    delegate->updaterDidFindValidUpdate(QStringLiteral("2.0"));
    processEvents();
    manager->checkForUpdates();
    delegate->updaterDidNotFindUpdate(QStringLiteral("There is none."));
    processEvents();
    EXPECT_THAT(availabilities, ElementsAre(checking, available, checking, unavailable));
}

TEST_F(UpdateManagerTest, aBackgroundCheckFindsAnUpdateOrNone)
{
    start();
    delegate->updaterDidFindValidUpdate(QStringLiteral("2.0"));
    processEvents();
    delegate->updaterDidNotFindUpdate(QStringLiteral("There is none."));
    processEvents();
    EXPECT_THAT(availabilities, ElementsAre(available, unavailable));
}

TEST_F(UpdateManagerTest, whatOtherThreadsTellChangesOnTheMainThread)
{
    start();
    std::thread([this] { delegate->updaterDidFindValidUpdate(QStringLiteral("2.0")); }).join();
    EXPECT_EQ(manager->updateAvailability(), unknown);
    processEvents();
    EXPECT_THAT(availabilities, ElementsAre(available));
    std::thread([this] { delegate->updaterDidNotFindUpdate({}); }).join();
    EXPECT_EQ(manager->updateAvailability(), available);
    processEvents();
    EXPECT_THAT(availabilities, ElementsAre(available, unavailable));
}

TEST_F(UpdateManagerTest, withoutAnUpdaterACheckNeverEnds)
{
    startWithoutUpdater();
    processEvents();
    EXPECT_FALSE(manager->hasUpdater());
    EXPECT_FALSE(manager->canCheckForUpdates());
    manager->checkForUpdates();
    processEvents();
    EXPECT_EQ(manager->updateAvailability(), checking);
    EXPECT_THAT(canCheckValues, IsEmpty());
}

TEST_F(UpdateManagerTest, passesOnWhatConcernsTheDialogAndTheEnd)
{
    start();
    manager->bringToFront();
    EXPECT_EQ(controller->presentations, 1);
    manager->stop();
    EXPECT_EQ(controller->stops, 1);
    EXPECT_EQ(manager->updateAvailability(), unknown);
    startWithoutUpdater();
    EXPECT_NO_THROW(manager->bringToFront());
    EXPECT_NO_THROW(manager->stop());
}

TEST_F(UpdateManagerTest, whatComesTooLateIsDropped)
{
    start(true);
    delegate->updaterDidFindValidUpdate(QStringLiteral("2.0"));
    manager.reset();
    processEvents();
    EXPECT_THAT(availabilities, IsEmpty());
}

}  // namespace
