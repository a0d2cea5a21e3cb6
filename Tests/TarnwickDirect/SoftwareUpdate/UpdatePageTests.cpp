#include "TarnwickDirect/SoftwareUpdate/UpdatePage.h"

#include "Support/Mapped.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::ElementsAre;
using Kind = UpdateState::Kind;

class UpdatePageTest : public testing::Test {
protected:
    UpdatePageTest()
    {
        state.offer.displayedVersion = QStringLiteral("2.0");
        state.offer.fileName = QStringLiteral("tarnwick.deb");
        state.offer.length = 50'000'000;
        installation.kind = Installation::Kind::debianPackage;
        installation.package = QStringLiteral("tarnwick");
    }

    UpdatePage page(Kind kind)
    {
        state.kind = kind;
        return updatePage(state, installation, QStringLiteral("1.0")).value();
    }

    std::vector<std::string> buttons(Kind kind)
    {
        return TestSupport::mapped(
            page(kind).actions, [](UpdateAction action) { return textOf(action).toStdString(); });
    }

    std::string title(Kind kind) { return page(kind).title.toStdString(); }

    std::string message(Kind kind) { return page(kind).message.toStdString(); }

    UpdateState state;
    Installation installation;
};

TEST_F(UpdatePageTest, thereIsNothingToShowAtRest)
{
    EXPECT_EQ(updatePage({}, installation, QStringLiteral("1.0")), std::nullopt);
}

TEST_F(UpdatePageTest, aCheck)
{
    EXPECT_EQ(title(Kind::checking), "Checking for Updates…");
    EXPECT_TRUE(page(Kind::checking).isBusy);
    EXPECT_THAT(buttons(Kind::checking), ElementsAre("Cancel"));
}

TEST_F(UpdatePageTest, whatIsTold)
{
    state.title = QStringLiteral("You're up to date!");
    state.message = QStringLiteral("Tarnwick 1.0 is the newest version available.");
    EXPECT_EQ(title(Kind::told), "You're up to date!");
    EXPECT_EQ(message(Kind::told), "Tarnwick 1.0 is the newest version available.");
    EXPECT_THAT(buttons(Kind::told), ElementsAre("OK"));
}

TEST_F(UpdatePageTest, anUpdate)
{
    state.offer.releaseNotes = QStringLiteral("<p>Faster &amp; calmer.</p>");
    EXPECT_EQ(title(Kind::available), "A new version of Tarnwick is available!");
    EXPECT_EQ(
        message(Kind::available),
        "Tarnwick 2.0 is available, and you have 1.0. Would you like to install it now?");
    EXPECT_EQ(page(Kind::available).notes, QStringLiteral("Faster & calmer."));
    EXPECT_THAT(
        buttons(Kind::available),
        ElementsAre("Skip This Version", "Remind Me Later", "Install Update"));
}

TEST_F(UpdatePageTest, knowsWhetherTheUserAsked)
{
    EXPECT_TRUE(page(Kind::available).wasAskedFor);
    state.wasAskedFor = false;
    EXPECT_FALSE(page(Kind::available).wasAskedFor);
}

TEST_F(UpdatePageTest, aCriticalUpdateCannotBeSkipped)
{
    state.offer.isCritical = true;
    EXPECT_EQ(
        message(Kind::available),
        "Tarnwick 2.0 is available, and you have 1.0. It is a critical update. Would you like to "
        "install it now?");
    EXPECT_THAT(buttons(Kind::available), ElementsAre("Remind Me Later", "Install Update"));
}

TEST_F(UpdatePageTest, aPackageOfARepositoryNamesTheCommand)
{
    installation.kind = Installation::Kind::repositoryPackage;
    EXPECT_EQ(
        message(Kind::available),
        "Tarnwick 2.0 is available, and you have 1.0. Your package manager updates it: run \"sudo "
        "apt update && sudo apt install --only-upgrade tarnwick\".");
    EXPECT_THAT(buttons(Kind::available), ElementsAre("OK"));
}

TEST_F(UpdatePageTest, aBuildFromSourceSaysSo)
{
    installation.kind = Installation::Kind::source;
    EXPECT_EQ(
        message(Kind::available),
        "Tarnwick 2.0 is available, and you have 1.0. This copy was built from source. "
        "Build it again to update it.");
    EXPECT_THAT(buttons(Kind::available), ElementsAre("OK"));
}

TEST_F(UpdatePageTest, aDownload)
{
    state.receivedBytes = 12'500'000;
    EXPECT_EQ(title(Kind::downloading), "Downloading Update…");
    EXPECT_EQ(message(Kind::downloading), "12.5 MB of 50.0 MB");
    EXPECT_EQ(page(Kind::downloading).progress, 0.25);
    EXPECT_THAT(buttons(Kind::downloading), ElementsAre("Cancel"));
}

TEST_F(UpdatePageTest, verification)
{
    EXPECT_EQ(title(Kind::verifying), "Verifying Update…");
    EXPECT_TRUE(page(Kind::verifying).isBusy);
    EXPECT_THAT(buttons(Kind::verifying), ElementsAre("Cancel"));
}

TEST_F(UpdatePageTest, aPackageIsHandedOver)
{
    state.package = "/home/a/.cache/x/tarnwick.deb";
    EXPECT_EQ(title(Kind::handedOver), "Continue in the Installer");
    EXPECT_EQ(
        message(Kind::handedOver),
        "The system's installer was asked to open \"tarnwick.deb\". If it does not, run \"sudo apt "
        "install '/home/a/.cache/x/tarnwick.deb'\".");
    EXPECT_THAT(buttons(Kind::handedOver), ElementsAre("OK"));
}

TEST_F(UpdatePageTest, closingDecidesNothing)
{
    EXPECT_EQ(page(Kind::checking).closing(), UpdateAction::cancel);
    EXPECT_EQ(page(Kind::told).closing(), UpdateAction::okay);
    EXPECT_EQ(page(Kind::available).closing(), UpdateAction::remindLater);
    EXPECT_EQ(page(Kind::downloading).closing(), UpdateAction::cancel);
    state.offer.isCritical = true;
    EXPECT_EQ(page(Kind::available).closing(), UpdateAction::remindLater);
}

}  // namespace
