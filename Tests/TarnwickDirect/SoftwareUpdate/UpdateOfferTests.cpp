#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include "SoftwareUpdate/AppcastItems.h"
#include "Support/Errors.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

namespace {

using namespace TarnwickDirect;

class UpdateOfferTest : public testing::Test {
protected:
    std::string error()
    {
        return TestSupport::messageOf<UpdateError>(
            [this] { makeOffer(item, item.enclosures[0], false); });
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
    EXPECT_EQ(offer.url, QUrl(QStringLiteral("https://example.com/tarnwick_2.0.deb")));
    EXPECT_EQ(offer.fileName, QStringLiteral("tarnwick_2.0.deb"));
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
         {"http://example.com/a.deb",
          "file:///tmp/a.deb",
          "ftp://example.com/a.deb",
          "a.deb",
          "https:///a.deb",
          ""}) {
        enclosure.url = QUrl::fromEncoded(url);
        EXPECT_EQ(error(), "The address of version 2.0 is not an HTTPS address.") << url;
    }
}

TEST_F(UpdateOfferTest, refusesAPathInTheFileName)
{
    enclosure.url = QUrl::fromEncoded("https://example.com/..%2Fa.deb");
    EXPECT_EQ(error(), "The update's file name \"..%2Fa.deb\" is not a plain name.");
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

/// The name of the file at an address, or the error.
std::string nameAt(const std::string& url)
{
    std::string name;
    const std::string error = TestSupport::messageOf<UpdateError>([&] {
        name = downloadName(QUrl::fromEncoded(QByteArray::fromStdString(url))).toStdString();
    });
    return error == "none" ? name : error;
}

TEST(DownloadName, isTheLastPartOfTheAddress)
{
    EXPECT_EQ(nameAt("https://example.com/v1/tarnwick.deb?a=/b/c#/d"), "tarnwick.deb");
    EXPECT_EQ(nameAt("https://example.com/Tarnwick%201.4.deb"), "Tarnwick 1.4.deb");
    EXPECT_EQ(nameAt("https://example.com/Caf%C3%A9"), "Caf\xc3\xa9");
}

TEST(DownloadName, aFolderIsRefused)
{
    for (const char* const url : {"/", "", "/releases/"}) {
        EXPECT_EQ(
            nameAt(std::string("https://example.com") + url),
            "The update's address has no file name.");
    }
}

TEST(DownloadName, pathsHiddenNamesAndUnseenCharactersAreRefused)
{
    for (const std::string name :
         {"..%2F..%2F.bashrc",
          "%2Fetc%2Fpasswd",
          "a%5Cb",
          "..",
          ".bashrc",
          "a%00b",
          "a%0Ab",
          "a%E2%80%AEb",
          "a%FFb"}) {
        EXPECT_EQ(
            nameAt("https://example.com/" + name),
            "The update's file name \"" + name + "\" is not a plain name.");
    }
    EXPECT_EQ(
        nameAt("https://example.com/%2E%2E"), "The update's file name \"..\" is not a plain name.");
}

TEST(DownloadName, aLongNameIsRefused)
{
    const std::string address = "https://example.com/";
    EXPECT_EQ(nameAt(address + std::string(200, 'a')), std::string(200, 'a'));
    EXPECT_EQ(nameAt(address + std::string(201, 'a')), "The update's file name is too long.");
}

}  // namespace
