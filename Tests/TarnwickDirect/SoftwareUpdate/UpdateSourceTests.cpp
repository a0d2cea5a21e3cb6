#include "TarnwickDirect/SoftwareUpdate/UpdateSource.h"

#include "SoftwareUpdate/Signing.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::Eq;

const std::string key = "iojj3XQJ8ZX9UtstPLpdcspnCb8dlBIb83SIAbQPb1w=";

TEST(UpdateSource, isAnHttpsAddressAndAKey)
{
    const auto source = updateSource("https://example.com/feed.xml", key);
    ASSERT_NE(source, std::nullopt);
    EXPECT_EQ(source->feed, QUrl(QStringLiteral("https://example.com/feed.xml")));
    EXPECT_EQ(source->key, TestSupport::SigningKey(1).publicKey());
}

TEST(UpdateSource, isNothingWithoutOneOfThemOrWithAWrongOne)
{
    EXPECT_THAT(updateSource("", ""), Eq(std::nullopt));
    EXPECT_THAT(updateSource("https://example.com/feed.xml", ""), Eq(std::nullopt));
    EXPECT_THAT(updateSource("", key), Eq(std::nullopt));
    EXPECT_THAT(updateSource("http://example.com/feed.xml", key), Eq(std::nullopt));
    EXPECT_THAT(updateSource("https:///feed.xml", key), Eq(std::nullopt));
    EXPECT_THAT(updateSource("feed.xml", key), Eq(std::nullopt));
    EXPECT_THAT(updateSource("https://example.com/feed.xml", "c2hvcnQ="), Eq(std::nullopt));
}

}  // namespace
