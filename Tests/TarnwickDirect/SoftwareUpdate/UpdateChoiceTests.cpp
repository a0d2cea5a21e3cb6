#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"

#include "SoftwareUpdate/AppcastItems.h"
#include "Support/Errors.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

namespace {

using namespace TarnwickDirect;

class UpdateChoiceTest : public testing::Test {
protected:
    /// Adds an item to the feed, which the test may change until it adds another.
    AppcastItem& add(const char16_t* version)
    {
        return feed.emplace_back(TestSupport::itemOf(QString::fromUtf16(version)));
    }

    UpdateOffer offer() const { return std::get<UpdateOffer>(chooseUpdate(feed, needs)); }

    std::string offered() const { return offer().version.toStdString(); }

    /// Why nothing is offered, after "up to date: " where it is because of that.
    std::string none() const
    {
        const auto none = std::get<NoUpdate>(chooseUpdate(feed, needs));
        return (none.isUpToDate ? "up to date: " : "") + none.message.toStdString();
    }

    Appcast feed;
    UpdateNeeds needs{
        .ownVersion = QStringLiteral("1.0"),
        .systemVersion = QStringLiteral("6.1.0"),
        .channels = {},
        .skippedVersion = {}};
};

TEST_F(UpdateChoiceTest, takesTheNewestWhereverItStands)
{
    add(u"1.9");
    add(u"1.10");
    add(u"1.2");
    EXPECT_EQ(offered(), "1.10");
}

TEST_F(UpdateChoiceTest, takesTheFirstOfEqualOnes)
{
    add(u"1.2").shortVersion = QStringLiteral("one");
    add(u"1.2.0").shortVersion = QStringLiteral("two");
    EXPECT_EQ(offer().displayedVersion, QStringLiteral("one"));
}

TEST_F(UpdateChoiceTest, takesTheFileThatIsADebianPackage)
{
    AppcastItem& item = add(u"1.1");
    item.enclosures.insert(item.enclosures.begin(), item.enclosures[0]);
    item.enclosures[0].url = QUrl(QStringLiteral("https://example.com/tarnwick.tar.gz"));
    EXPECT_EQ(offer().fileName, QStringLiteral("tarnwick_1.1.deb"));
    item.enclosures[0].url = QUrl(QStringLiteral("https://example.com/latest"));
    item.enclosures[0].type = QStringLiteral("application/vnd.debian.binary-package");
    EXPECT_EQ(offer().fileName, QStringLiteral("latest"));
}

TEST_F(UpdateChoiceTest, leavesOutWhatHasNoDebianPackage)
{
    add(u"1.1");
    add(u"1.2").enclosures[0].url = QUrl(QStringLiteral("https://example.com/tarnwick.tar.gz"));
    EXPECT_EQ(offered(), "1.1");
}

TEST_F(UpdateChoiceTest, leavesOutOtherSystems)
{
    add(u"1.1").enclosures[0].operatingSystem = QStringLiteral("linux");
    add(u"1.2").enclosures[0].operatingSystem = QStringLiteral("windows");
    add(u"1.3").enclosures[0].operatingSystem = QStringLiteral("macos");
    EXPECT_EQ(offered(), "1.1");
}

TEST_F(UpdateChoiceTest, leavesOutOtherChannels)
{
    add(u"1.1");
    add(u"1.2").channel = QStringLiteral("beta");
    EXPECT_EQ(offered(), "1.1");
    needs.channels = {QStringLiteral("beta")};
    EXPECT_EQ(offered(), "1.2");
}

TEST_F(UpdateChoiceTest, takesTheCommonChannelBesideAnother)
{
    add(u"1.2");
    add(u"1.1").channel = QStringLiteral("beta");
    needs.channels = {QStringLiteral("beta")};
    EXPECT_EQ(offered(), "1.2");
}

TEST_F(UpdateChoiceTest, leavesOutWhatNeedsANewerSystem)
{
    add(u"1.1").minimumSystemVersion = QStringLiteral("6.1");
    add(u"1.2").minimumSystemVersion = QStringLiteral("6.10");
    EXPECT_EQ(offered(), "1.1");
}

TEST_F(UpdateChoiceTest, tellsWhenOnlyTheSystemIsTooOld)
{
    add(u"1.2").minimumSystemVersion = QStringLiteral("6.10");
    EXPECT_EQ(
        none(), "Tarnwick 1.2 requires Linux 6.10 or newer, but this system has Linux 6.1.0.");
}

TEST_F(UpdateChoiceTest, aFeedWithNothingForThisSystemIsEmpty)
{
    EXPECT_EQ(none(), "The update feed offers no version for this system.");
    add(u"1.2").enclosures.clear();
    add(u"");
    EXPECT_EQ(none(), "The update feed offers no version for this system.");
}

TEST_F(UpdateChoiceTest, theSameVersionIsUpToDate)
{
    add(u"0.9");
    add(u"1.0.0");
    EXPECT_EQ(none(), "up to date: Tarnwick 1.0 is the newest version available.");
}

TEST_F(UpdateChoiceTest, aDowngradeIsNeverOffered)
{
    const std::string isNewer =
        "up to date: Tarnwick 1.0 is newer than the newest version in the update feed, ";
    add(u"0.9").isCritical = true;
    EXPECT_EQ(none(), isNewer + "0.9.");
    add(u"1.0 beta").isCritical = true;
    EXPECT_EQ(none(), isNewer + "1.0 beta.");
}

TEST_F(UpdateChoiceTest, aSkippedVersionIsNotOffered)
{
    needs.skippedVersion = QStringLiteral("1.2");
    add(u"1.1");
    add(u"1.2");
    EXPECT_EQ(none(), "Tarnwick 1.2 is available, and you have skipped it.");
    add(u"1.3");
    EXPECT_EQ(offered(), "1.3");
}

TEST_F(UpdateChoiceTest, aCriticalVersionIsNotSkipped)
{
    needs.skippedVersion = QStringLiteral("1.2");
    add(u"1.2").isCritical = true;
    EXPECT_EQ(offered(), "1.2");
    EXPECT_TRUE(offer().isCritical);
}

TEST_F(UpdateChoiceTest, isCriticalWhereAVersionOnTheWayIs)
{
    add(u"1.2");
    EXPECT_FALSE(offer().isCritical);
    add(u"1.1").isCritical = true;
    EXPECT_EQ(offered(), "1.2");
    EXPECT_TRUE(offer().isCritical);
}

TEST_F(UpdateChoiceTest, isCriticalOnlyBelowTheVersionThatTheFeedNames)
{
    AppcastItem& item = add(u"1.2");
    item.isCritical = true;
    item.criticalBelow = QStringLiteral("1.1");
    EXPECT_TRUE(offer().isCritical);
    needs.ownVersion = QStringLiteral("1.1");
    EXPECT_FALSE(offer().isCritical);
}

TEST_F(UpdateChoiceTest, anUnsignedNewestIsAnErrorAndNoReasonToTakeAnOlderOne)
{
    add(u"1.1");
    add(u"1.2").enclosures[0].signature.clear();
    EXPECT_EQ(
        TestSupport::messageOf<UpdateError>([this] { chooseUpdate(feed, needs); }),
        "The update feed has no signature for version 1.2.");
}

TEST_F(UpdateChoiceTest, whatIsNotChosenMayBeDamaged)
{
    add(u"0.9").enclosures[0].signature.clear();
    add(u"1.1").enclosures[0].length = std::nullopt;
    add(u"1.2");
    EXPECT_EQ(offered(), "1.2");
}

}  // namespace
