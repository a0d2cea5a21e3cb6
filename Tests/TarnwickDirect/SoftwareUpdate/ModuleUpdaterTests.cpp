#include "TarnwickDirect/SoftwareUpdate/ModuleUpdater.h"

#include "Fakes/EventLoop.h"
#include "Fakes/FakeClock.h"
#include "Fakes/MemoryDefaultsStore.h"
#include "SoftwareUpdate/UpdaterFixture.h"

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;

constexpr std::string_view lastCheckKey = "updates.lastCheck";
const char* const otherVersion =
    "Restart Tarnwick before checking for updates; another version was installed meanwhile.";

class ModuleUpdaterTest : public testing::Test {
protected:
    ModuleUpdaterTest() { qputenv("XDG_CACHE_HOME", cache.path().c_str()); }

    ~ModuleUpdaterTest() override
    {
        updater.reset();
        qputenv("XDG_CACHE_HOME", cacheBefore);
    }

    void start(const char* path)
    {
        Tarnwick::writeDate(*host.defaults, lastCheckKey, clock->now() - 2h);
        updater = std::make_unique<ModuleUpdater>(QString::fromUtf8(path), host, delegate);
        EXPECT_TRUE(updater->canCheckForUpdates());
    }

    const QByteArray cacheBefore = qgetenv("XDG_CACHE_HOME");
    Folder cache;
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    std::vector<QWidget*> shown;
    int returns = 0;
    UpdaterHost host{
        .defaults = std::make_shared<MemoryDefaultsStore>(),
        .clock = clock,
        .bringToFront =
            [this](QWidget& window) {
                shown.push_back(&window);
                window.show();
            },
        .takeFocusBack = [this] { ++returns; }};
    RecordingDelegate delegate;
    std::unique_ptr<ModuleUpdater> updater;
};

TEST_F(ModuleUpdaterTest, theStartRemovesWhatAKilledProgramHasLeft)
{
    const auto downloads = cache / "dev.tarnwick.Tarnwick/updates";
    std::filesystem::create_directories(downloads / "abcdef");
    start("/nowhere.so");
    EXPECT_FALSE(exists(downloads));
    EXPECT_TRUE(exists(downloads.parent_path()));
}

TEST_F(ModuleUpdaterTest, aModuleThatIsMissingIsToldToWhoAsksForACheck)
{
    const char* const problem =
        "Tarnwick cannot check for updates because \"/nowhere.so\" cannot be loaded.";
    start("/nowhere.so");
    updater->checkForUpdates();
    EXPECT_THAT(delegate.heard, ElementsAre(problem));
    ASSERT_EQ(shown.size(), 1U);
    auto* const box = qobject_cast<QMessageBox*>(shown[0]);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowTitle(), QStringLiteral("Software Update"));
    EXPECT_EQ(box->text().toStdString(), problem);
    EXPECT_EQ(Tarnwick::readDate(*host.defaults, lastCheckKey), clock->now());
    box->accept();
    EXPECT_EQ(returns, 1);
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_NO_THROW(updater->bringToFront());
    EXPECT_NO_THROW(updater->stop());
}

TEST_F(ModuleUpdaterTest, aCheckThatNobodyAskedForShowsNoProblem)
{
    start("/nowhere.so");
    clock->advance(1min);
    EXPECT_THAT(delegate.heard, IsEmpty());
    clock->advance(22h);
    EXPECT_THAT(delegate.heard, ElementsAre(HasSubstr("cannot be loaded")));
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(ModuleUpdaterTest, aModuleOfAnotherVersionIsNotUsed)
{
    start(TARNWICK_OTHER_MODULE);
    updater->checkForUpdates();
    EXPECT_THAT(delegate.heard, ElementsAre(otherVersion));
}

TEST_F(ModuleUpdaterTest, aFileThatIsNoModuleIsNotUsed)
{
    start("/etc/passwd");
    updater->checkForUpdates();
    EXPECT_THAT(
        delegate.heard,
        ElementsAre("Tarnwick cannot check for updates because \"/etc/passwd\" cannot be loaded."));
}

TEST_F(ModuleUpdaterTest, theModuleChecksWithWhatTheProgramGivesIt)
{
    TlsServer server;
    qputenv("TARNWICK_UPDATE_FEED", server.url("/feed.xml").toEncoded());
    qputenv("TARNWICK_UPDATE_AUTHORITY", "/nowhere");
    qputenv("TARNWICK_UPDATE_KEY", "iojj3XQJ8ZX9UtstPLpdcspnCb8dlBIb83SIAbQPb1w=");
    start(TARNWICK_MODULE);
    std::vector<bool> canCheck;
    QObject::connect(
        updater.get(), &UpdaterController::canCheckForUpdatesChanged, [&](bool newCanCheck) {
            EXPECT_EQ(newCanCheck, updater->canCheckForUpdates());
            canCheck.push_back(newCanCheck);
        });
    updater->checkForUpdates();
    EXPECT_FALSE(updater->canCheckForUpdates());
    ASSERT_TRUE(eventually([this] { return !delegate.heard.empty(); }));
    EXPECT_THAT(
        delegate.heard,
        ElementsAre(
            "The update feed could not be fetched: the server could not prove its identity."));
    EXPECT_THAT(canCheck, ElementsAre(false, true));
    updater->bringToFront();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0]->windowTitle(), QStringLiteral("Software Update"));
    EXPECT_EQ(shown[1], shown[0]);
}

}  // namespace
