#include "TarnwickDirect/UpdateManager.h"

#include "Fakes/EventLoop.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <QThread>

#include <thread>

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::ElementsAre;
using testing::IsEmpty;
using enum UpdateAvailability;

class FakeController final : public UpdaterController {
public:
    bool canCheckForUpdates() const override { return canCheck; }

    void checkForUpdates() override { ++checks; }

    void bringToFront() override { ++presentations; }

    void stop() override { ++stops; }

    void set(bool newCanCheck)
    {
        canCheck = newCanCheck;
        Q_EMIT canCheckForUpdatesChanged(newCanCheck);
    }

    bool canCheck = false;
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
    TestSupport::processEvents();
    EXPECT_TRUE(manager->canCheckForUpdates());
    EXPECT_THAT(canCheckValues, ElementsAre(true));
}

TEST_F(UpdateManagerTest, takesEveryNewValueOnTheEventLoop)
{
    start();
    TestSupport::processEvents();
    EXPECT_FALSE(manager->canCheckForUpdates());
    controller->set(true);
    controller->set(false);
    controller->set(true);
    EXPECT_FALSE(manager->canCheckForUpdates());
    TestSupport::processEvents();
    EXPECT_THAT(canCheckValues, ElementsAre(true, false, true));
}

TEST_F(UpdateManagerTest, aValueThatChangesAtOnceComesAfterTheInitialOne)
{
    start(true);
    controller->set(false);
    TestSupport::processEvents();
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
    class Probe final : public UpdaterController {
    public:
        bool canCheckForUpdates() const override { return true; }

        void checkForUpdates() override { seen = manager->updateAvailability(); }

        void bringToFront() override {}

        void stop() override {}

        UpdateManager* manager = nullptr;
        UpdateAvailability seen = unknown;
    };

    Probe* probe = nullptr;
    UpdateManager probed([&](UpdaterDelegate&) {
        auto made = std::make_unique<Probe>();
        probe = made.get();
        return made;
    });
    probe->manager = &probed;
    probed.checkForUpdates();
    EXPECT_EQ(probe->seen, checking);
}

TEST_F(UpdateManagerTest, aCheckOfTheUserFindsAnUpdate)
{
    start();
    manager->checkForUpdates();
    delegate->updaterDidFindValidUpdate({});
    TestSupport::processEvents();
    EXPECT_THAT(availabilities, ElementsAre(checking, available));
}

TEST_F(UpdateManagerTest, aCheckOfTheUserFindsNone)
{
    start();
    manager->checkForUpdates();
    delegate->updaterDidNotFindUpdate(QStringLiteral("There is none."));
    TestSupport::processEvents();
    EXPECT_THAT(availabilities, ElementsAre(checking, unavailable));
}

TEST_F(UpdateManagerTest, aBackgroundCheckFindsAnUpdate)
{
    start();
    delegate->updaterDidFindValidUpdate({});
    TestSupport::processEvents();
    EXPECT_THAT(availabilities, ElementsAre(available));
}

TEST_F(UpdateManagerTest, aBackgroundCheckFindsNone)
{
    start();
    delegate->updaterDidNotFindUpdate(QStringLiteral("There is none."));
    TestSupport::processEvents();
    EXPECT_THAT(availabilities, ElementsAre(unavailable));
}

TEST_F(UpdateManagerTest, aFurtherCheckBeginsAnew)
{
    start();
    delegate->updaterDidFindValidUpdate({});
    TestSupport::processEvents();
    manager->checkForUpdates();
    delegate->updaterDidNotFindUpdate(QStringLiteral("There is none."));
    TestSupport::processEvents();
    EXPECT_THAT(availabilities, ElementsAre(available, checking, unavailable));
}

TEST_F(UpdateManagerTest, whatOtherThreadsTellChangesOnTheMainThread)
{
    start();
    std::thread([this] { delegate->updaterDidFindValidUpdate({}); }).join();
    EXPECT_EQ(manager->updateAvailability(), unknown);
    TestSupport::processEvents();
    EXPECT_THAT(availabilities, ElementsAre(available));
    std::thread([this] { delegate->updaterDidNotFindUpdate({}); }).join();
    EXPECT_EQ(manager->updateAvailability(), available);
    TestSupport::processEvents();
    EXPECT_THAT(availabilities, ElementsAre(available, unavailable));
}

TEST_F(UpdateManagerTest, withoutAnUpdaterACheckNeverEnds)
{
    startWithoutUpdater();
    TestSupport::processEvents();
    EXPECT_FALSE(manager->hasUpdater());
    EXPECT_FALSE(manager->canCheckForUpdates());
    manager->checkForUpdates();
    TestSupport::processEvents();
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
    delegate->updaterDidFindValidUpdate({});
    manager.reset();
    TestSupport::processEvents();
    EXPECT_THAT(availabilities, IsEmpty());
}

}  // namespace
