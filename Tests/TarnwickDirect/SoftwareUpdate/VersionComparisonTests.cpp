#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

#include <QString>

#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace {

using TarnwickDirect::compareVersions;

struct Pair {
    const char16_t* left;
    const char16_t* right;
};

std::string text(const Pair& pair)
{
    return QString::fromUtf16(pair.left).toStdString() + " and "
           + QString::fromUtf16(pair.right).toStdString();
}

TEST(VersionComparison, theLeftVersionIsOlder)
{
    for (const Pair& pair : std::vector<Pair>{
             {u"1.0", u"1.1"},
             {u"1.9", u"1.10"},
             {u"0.9.9", u"1.0"},
             {u"1.0", u"1.0.1"},
             {u"1", u"1.0.0.1"},
             {u"1.2.3", u"1.2.10"},
             {u"99", u"100"},
             {u"1.08", u"1.9"},
             {u"1.0a1", u"1.0"},
             {u"1.0a1", u"1.0a2"},
             {u"1.0a9", u"1.0b1"},
             {u"1.0b9", u"1.0rc1"},
             {u"1.0rc1", u"1.0"},
             {u"1.0rc2", u"1.0rc10"},
             {u"1.0 alpha", u"1.0 beta"},
             {u"1.0-beta", u"1.0"},
             {u"1.0-beta", u"1.0-beta.1"},
             {u"1.0-beta.2", u"1.0-beta.11"},
             {u"2.0 beta 3", u"2.0"},
             {u"1.9.9", u"2.0 beta 3"},
             {u"1.0.beta", u"1.0.0"},
             {u"1.0~rc1", u"1.0"},
             {u"1.0dev", u"1.0"},
             {u"", u"0.1"},
             {u"nightly", u"0.0"},
             {u"20240501", u"20240502"},
             {u"18446744073709551615", u"18446744073709551616"},
             {u"9.99999999999999999999999999", u"9.100000000000000000000000000"},
         }) {
        EXPECT_TRUE(compareVersions(pair.left, pair.right) < 0) << text(pair);
        EXPECT_TRUE(compareVersions(pair.right, pair.left) > 0) << text(pair);
    }
}

TEST(VersionComparison, bothVersionsAreTheSame)
{
    for (const Pair& pair : std::vector<Pair>{
             {u"1.0", u"1.0"},
             {u"1", u"1.0.0"},
             {u"1.01", u"1.1"},
             {u"1.0-beta-2", u"1.0 BETA 2"},
             {u"1.0b2", u"1.0.b.2"},
             {u"v1.2", u"1.2"},
             {u"V1.2", u"1.2"},
             {u"1.2+build.7", u"1.2+build.8"},
             {u" 1.2 ", u"1.2"},
             {u"", u"0"},
             {u"1.2.", u"1.2"},
         }) {
        EXPECT_TRUE(compareVersions(pair.left, pair.right) == 0) << text(pair);
        EXPECT_TRUE(compareVersions(pair.right, pair.left) == 0) << text(pair);
    }
}

TEST(VersionComparison, isAnOrder)
{
    const auto version = [] {
        const auto letter =
            rc::gen::element<char16_t>(u'0', u'1', u'9', u'a', u'B', u'.', u'-', u' ');
        const auto letters = *rc::gen::container<std::u16string>(letter);
        return QString::fromStdU16String(letters);
    };
    EXPECT_TRUE(rc::check([&] {
        const QString first = version();
        const QString second = version();
        const QString third = version();
        RC_ASSERT((compareVersions(first, first) == 0));
        RC_ASSERT((compareVersions(first, second) < 0) == (compareVersions(second, first) > 0));
        if (compareVersions(first, second) <= 0 && compareVersions(second, third) <= 0) {
            RC_ASSERT((compareVersions(first, third) <= 0));
        }
    }));
}

TEST(VersionComparison, ofAKernelTheNumbersAtTheBeginningCount)
{
    const auto versionIn = [](const char16_t* kernelVersion) {
        return TarnwickDirect::systemVersionIn(QString::fromUtf16(kernelVersion)).toStdString();
    };
    EXPECT_EQ(versionIn(u"6.1.0-18-amd64"), "6.1.0");
    EXPECT_EQ(versionIn(u"6.8.9.arch1-2"), "6.8.9");
    EXPECT_EQ(versionIn(u"6.9"), "6.9");
    EXPECT_EQ(versionIn(u"unknown"), "");
}

TEST(VersionComparison, ofAPackageNeitherEpochNorRevisionCounts)
{
    const auto versionIn = [](const char16_t* packageVersion) {
        return TarnwickDirect::upstreamVersion(QString::fromUtf16(packageVersion)).toStdString();
    };
    EXPECT_EQ(versionIn(u"0.2.0~dev-1"), "0.2.0~dev");
    EXPECT_EQ(versionIn(u"1:0.2.0-beta-1"), "0.2.0-beta");
    EXPECT_EQ(versionIn(u"0.2.0"), "0.2.0");
    EXPECT_EQ(versionIn(u""), "");
}

}  // namespace
