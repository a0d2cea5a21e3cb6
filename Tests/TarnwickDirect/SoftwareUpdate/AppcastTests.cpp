#include "TarnwickDirect/SoftwareUpdate/Appcast.h"

#include "Support/Errors.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

namespace {

using namespace TarnwickDirect;
using TestSupport::messageOf;

const QByteArray beginning = R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="urn:feed"><channel><title>Tarnwick</title>)";
const QByteArray ending = "</channel></rss>";

Appcast feedWith(const QByteArray& items)
{
    return readAppcast(beginning + items + ending);
}

AppcastItem itemWith(const QByteArray& elements)
{
    return feedWith("<item>" + elements + "</item>").at(0);
}

std::string errorOf(const QByteArray& feed)
{
    return messageOf<UpdateError>([&] { readAppcast(feed); });
}

std::string text(const QString& string)
{
    return string.toStdString();
}

TEST(Appcast, versionsHaveNoCharactersThatAreNotSeen)
{
    const AppcastItem item =
        itemWith("<sparkle:version>1.4\xE2\x80\xAE&#10;0\xE2\x81\xA6</sparkle:version>"
                 "<sparkle:shortVersionString>\xE2\x80\x8F"
                 "1.4\t\xC2\xAD"
                 "beta &#133;\xE2\x80\xA8"
                 "</sparkle:shortVersionString>"
                 "<sparkle:minimumSystemVersion>5\xE2\x80\x8B.10</sparkle:minimumSystemVersion>");
    EXPECT_EQ(text(item.version), "1.40");
    EXPECT_EQ(text(item.shortVersion), "1.4beta");
    EXPECT_EQ(text(item.minimumSystemVersion), "5.10");
    const AppcastItem ofEnclosure = itemWith(
        "<enclosure url=\"https://example.com/T.deb\" sparkle:version=\"1\xE2\x80\xAE.4\"/>");
    EXPECT_EQ(text(ofEnclosure.version), "1.4");
}

TEST(Appcast, readsEverythingThatIsUsedOfAnItem)
{
    const AppcastItem item = itemWith(R"(
        <sparkle:version>140</sparkle:version>
        <sparkle:shortVersionString>1.4</sparkle:shortVersionString>
        <sparkle:minimumSystemVersion>5.10</sparkle:minimumSystemVersion>
        <sparkle:channel>beta</sparkle:channel>
        <sparkle:criticalUpdate sparkle:version="1.3"/>
        <description><![CDATA[<p>Faster &amp; calmer.</p>]]></description>
        <enclosure url="https://example.com/Tarnwick.AppImage" length="1048576"
            type="Application/Octet-Stream" sparkle:os="Linux" sparkle:edSignature="c2lnbmF0dXJl"/>)");
    const AppcastItem expected{
        .version = QStringLiteral("140"),
        .shortVersion = QStringLiteral("1.4"),
        .minimumSystemVersion = QStringLiteral("5.10"),
        .channel = QStringLiteral("beta"),
        .releaseNotes = QStringLiteral("<p>Faster &amp; calmer.</p>"),
        .isCritical = true,
        .criticalBelow = QStringLiteral("1.3"),
        .enclosures = {
            {.url = QUrl(QStringLiteral("https://example.com/Tarnwick.AppImage")),
             .length = 1'048'576,
             .type = QStringLiteral("application/octet-stream"),
             .signature = QStringLiteral("c2lnbmF0dXJl"),
             .operatingSystem = QStringLiteral("linux")}}};
    EXPECT_EQ(item, expected);
}

TEST(Appcast, takesAttributesOfTheEnclosureForElements)
{
    const AppcastItem item = itemWith(R"(<enclosure url="https://example.com/a" length="1"
        sparkle:version="140" sparkle:shortVersionString="1.4"
        sparkle:minimumSystemVersion="5.10" sparkle:channel="beta"/>)");
    EXPECT_EQ(text(item.version), "140");
    EXPECT_EQ(text(item.shortVersion), "1.4");
    EXPECT_EQ(text(item.minimumSystemVersion), "5.10");
    EXPECT_EQ(text(item.channel), "beta");
}

TEST(Appcast, takesElementsForAttributesOfTheEnclosures)
{
    const AppcastItem item = itemWith(R"(
        <enclosure url="https://example.com/a" length="1"/>
        <enclosure url="https://example.com/b" length="2" sparkle:os="windows" sparkle:edSignature="Yg=="/>
        <sparkle:os>Linux</sparkle:os><sparkle:edSignature>YQ==</sparkle:edSignature>)");
    ASSERT_EQ(item.enclosures.size(), 2U);
    EXPECT_EQ(text(item.enclosures[0].operatingSystem), "linux");
    EXPECT_EQ(text(item.enclosures[0].signature), "YQ==");
    EXPECT_EQ(text(item.enclosures[1].operatingSystem), "windows");
    EXPECT_EQ(text(item.enclosures[1].signature), "Yg==");
}

TEST(Appcast, anItemThatTellsNothingIsEmpty)
{
    EXPECT_EQ(itemWith(""), AppcastItem{});
}

TEST(Appcast, whatIsNoNumberIsNoLength)
{
    for (const QByteArray length : {"", "-1", "1.5", "many", "99999999999999999999"}) {
        const AppcastItem item =
            itemWith("<enclosure url='https://e.com/a' length='" + length + "'/>");
        EXPECT_EQ(item.enclosures.at(0).length, std::nullopt) << length.toStdString();
    }
}

TEST(Appcast, whatStandsTwiceCountsTheFirstTime)
{
    const AppcastItem item =
        itemWith("<sparkle:version>2</sparkle:version><sparkle:version>3</sparkle:version>"
                 "<enclosure url='https://e.com/a' sparkle:version='4'/>");
    EXPECT_EQ(text(item.version), "2");
}

TEST(Appcast, passesOverWhatItDoesNotKnow)
{
    const AppcastItem item = itemWith("<pubDate>soon</pubDate><sparkle:deltas><enclosure "
                                      "url='https://e.com/delta' length='1'/></sparkle:deltas>"
                                      "<version>9</version><sparkle:version>2</sparkle:version>");
    EXPECT_EQ(text(item.version), "2");
    EXPECT_TRUE(item.enclosures.empty());
}

TEST(Appcast, keepsTheOrderOfTheItems)
{
    const Appcast feed =
        feedWith("<item><sparkle:version>1</sparkle:version></item><language>en</language>"
                 "<item><sparkle:version>2</sparkle:version></item>");
    ASSERT_EQ(feed.size(), 2U);
    EXPECT_EQ(text(feed[0].version), "1");
    EXPECT_EQ(text(feed[1].version), "2");
}

TEST(Appcast, aFeedWithoutItemsIsNoError)
{
    EXPECT_TRUE(feedWith("").empty());
    EXPECT_TRUE(readAppcast("<rss/>").empty());
}

TEST(Appcast, refusesAnEmptyFeed)
{
    EXPECT_EQ(errorOf(""), "The update feed is empty.");
    EXPECT_EQ(errorOf(" \n "), "The update feed is empty.");
}

TEST(Appcast, refusesAHugeFeed)
{
    const QByteArray atTheLimit =
        beginning + QByteArray(appcastSizeLimit - beginning.size() - ending.size(), ' ') + ending;
    EXPECT_EQ(errorOf(atTheLimit), "none");
    EXPECT_EQ(errorOf(atTheLimit + " "), "The update feed is larger than 4 MiB.");
}

TEST(Appcast, refusesWhatIsNotXml)
{
    EXPECT_EQ(errorOf("Not found"), "The update feed is not well-formed XML at line 1.");
    EXPECT_EQ(errorOf("{\"items\": []}"), "The update feed is not well-formed XML at line 1.");
    EXPECT_EQ(
        errorOf(beginning + "\n<item></channel>"),
        "The update feed is not well-formed XML at line 3.");
    EXPECT_EQ(
        errorOf(beginning + ending + "<rss/>"),
        "The update feed is not well-formed XML at line 2.");
    EXPECT_EQ(
        errorOf(QByteArray("<rss>\0</rss>", 12)),
        "The update feed is not well-formed XML at line 1.");
    EXPECT_EQ(
        errorOf("<rss><sparkle:version/></rss>"),
        "The update feed is not well-formed XML at line 1.");
}

TEST(Appcast, refusesXmlThatIsNotAFeed)
{
    EXPECT_EQ(
        errorOf("<html><body>Sign in to the network</body></html>"),
        "The update feed is not an RSS feed.");
    EXPECT_EQ(errorOf("<feed/>"), "The update feed is not an RSS feed.");
}

TEST(Appcast, refusesAFeedThatIsCutOffAnywhere)
{
    const QByteArray whole = beginning + "<item><title>A</title></item>" + ending;
    ASSERT_EQ(errorOf(whole), "none");
    const auto rootElement = whole.indexOf("<rss");
    for (qsizetype length = rootElement; length < whole.size(); ++length) {
        EXPECT_EQ(errorOf(whole.first(length)), "The update feed ends too early, at line 2.")
            << length;
    }
}

TEST(Appcast, refusesEveryDocumentType)
{
    const char* const refusal =
        "The update feed contains a document type declaration, which is not allowed.";
    EXPECT_EQ(errorOf("<!DOCTYPE html><html/>"), refusal);
    EXPECT_EQ(errorOf("<!DOCTYPE rss SYSTEM 'file:///etc/passwd'><rss/>"), refusal);
    EXPECT_EQ(
        errorOf("<!DOCTYPE rss [<!ENTITY file SYSTEM 'file:///etc/passwd'>]><rss>&file;</rss>"),
        refusal);
    EXPECT_EQ(
        errorOf("<!DOCTYPE rss [<!ENTITY a 'ha'><!ENTITY b '&a;&a;&a;'><!ENTITY c '&b;&b;&b;'>]>"
                "<rss>&c;</rss>"),
        refusal);
}

TEST(Appcast, knowsNoEntitiesButThoseOfXmlItself)
{
    EXPECT_EQ(text(itemWith("<description>&lt;&amp;&gt;&#65;</description>").releaseNotes), "<&>A");
    EXPECT_EQ(
        errorOf(beginning + "<item><title>&nbsp;</title></item>" + ending),
        "The update feed is not well-formed XML at line 2.");
}

TEST(Appcast, readsOtherEncodings)
{
    const Appcast feed = readAppcast(
        "<?xml version='1.0' encoding='ISO-8859-1'?><rss><channel><item><description>Caf\xe9"
        "</description></item></channel></rss>");
    EXPECT_EQ(text(feed.at(0).releaseNotes), "Caf\xc3\xa9");
}

}  // namespace
