#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include "SoftwareUpdate/AppcastItems.h"
#include "SoftwareUpdate/UpdateErrors.h"

#include <gtest/gtest.h>

namespace {

using namespace TarnwickDirect;

class UpdateOfferTest : public testing::Test {
protected:
    std::string error()
    {
        return TestSupport::updateErrorOf([this] { makeOffer(item, item.enclosures[0], false); });
    }

    AppcastItem item = TestSupport::itemOf(QStringLiteral("2.0"));
    AppcastEnclosure& enclosure = item.enclosures[0];
};

TEST_F(UpdateOfferTest, holdsWhatTheDownloadIsCheckedAgainst)
{
    item.shortVersion = QStringLiteral("2.0 \"Tarn\"");
    item.releaseNotes = QStringLiteral("Calmer.");
    const UpdateOffer offer = makeOffer(item, enclosure, true);
    EXPECT_EQ(offer.version, QStringLiteral("2.0"));
    EXPECT_EQ(offer.displayedVersion, QStringLiteral("2.0 \"Tarn\""));
    EXPECT_EQ(offer.releaseNotes, QStringLiteral("Calmer."));
    EXPECT_TRUE(offer.isCritical);
    EXPECT_EQ(offer.url, QUrl(QStringLiteral("https://example.com/Tarnwick-2.0.AppImage")));
    EXPECT_EQ(offer.fileName, QStringLiteral("Tarnwick-2.0.AppImage"));
    EXPECT_EQ(offer.length, 1000U);
    EXPECT_EQ(offer.signature[0], 's');
}

TEST_F(UpdateOfferTest, showsTheVersionWhereThereIsNoOtherText)
{
    EXPECT_EQ(makeOffer(item, enclosure, false).displayedVersion, QStringLiteral("2.0"));
}

TEST_F(UpdateOfferTest, refusesAddressesThatAreNotHttps)
{
    for (const char* const url :
         {"http://example.com/a.AppImage",
          "file:///tmp/a.AppImage",
          "ftp://example.com/a.AppImage",
          "a.AppImage",
          "https:///a.AppImage",
          ""}) {
        enclosure.url = QUrl::fromEncoded(url);
        EXPECT_EQ(error(), "The address of version 2.0 is not an HTTPS address.") << url;
    }
}

TEST_F(UpdateOfferTest, refusesAPathInTheFileName)
{
    enclosure.url = QUrl::fromEncoded("https://example.com/..%2Fa.AppImage");
    EXPECT_EQ(error(), "The update's file name \"..%2Fa.AppImage\" is not a plain name.");
}

TEST_F(UpdateOfferTest, refusesAnUnknownLength)
{
    enclosure.length = std::nullopt;
    EXPECT_EQ(error(), "The update feed does not give the size of version 2.0.");
    enclosure.length = 0;
    EXPECT_EQ(error(), "The update feed does not give the size of version 2.0.");
}

TEST_F(UpdateOfferTest, refusesAHugeLength)
{
    enclosure.length = 1'073'741'824;
    EXPECT_EQ(error(), "none");
    enclosure.length = 1'073'741'825;
    EXPECT_EQ(error(), "The update feed gives version 2.0 a size above 1 GiB.");
}

TEST_F(UpdateOfferTest, refusesAMissingSignature)
{
    enclosure.signature.clear();
    EXPECT_EQ(error(), "The update feed has no signature for version 2.0.");
}

TEST_F(UpdateOfferTest, refusesWhatCannotBeASignature)
{
    for (const QString& signature :
         {QStringLiteral("?"),
          QStringLiteral("YWJj"),
          TestSupport::wellFormedSignature.chopped(4)}) {
        enclosure.signature = signature;
        EXPECT_EQ(
            error(), "The update feed's signature for version 2.0 is not an Ed25519 signature.");
    }
}

}  // namespace
