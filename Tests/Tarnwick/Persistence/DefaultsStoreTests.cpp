#include "Tarnwick/Persistence/DefaultsStore.h"

#include "Fakes/MemoryDefaultsStore.h"
#include "Support/PullRequests.h"

#include <QDateTime>
#include <QStringList>
#include <QTimeZone>

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using TestSupport::date;

const QString key = u"key"_s;

/// What a reader makes of one stored value.
template<typename Reader>
auto reading(Reader read, const QVariant& stored)
{
    Fakes::MemoryDefaultsStore defaults;
    defaults.set(key, stored);
    return read(defaults, key);
}

TEST(DefaultsStore, yieldsNothingForAnAbsentKey)
{
    const Fakes::MemoryDefaultsStore defaults;
    EXPECT_EQ(readFlag(defaults, key), std::nullopt);
    EXPECT_EQ(readInteger(defaults, key), std::nullopt);
    EXPECT_EQ(readText(defaults, key), std::nullopt);
    EXPECT_EQ(readTextList(defaults, key), std::nullopt);
    EXPECT_EQ(readDate(defaults, key), std::nullopt);
}

TEST(DefaultsStore, readsFlagsAndTheirTexts)
{
    for (const QVariant& stored :
         {QVariant(true),
          QVariant(u"true"_s),
          QVariant(u"True"_s),
          QVariant(u"1"_s),
          QVariant(1)}) {
        EXPECT_THAT(reading(readFlag, stored), Optional(true));
    }
    for (const QVariant& stored :
         {QVariant(false), QVariant(u"false"_s), QVariant(u"0"_s), QVariant(0)}) {
        EXPECT_THAT(reading(readFlag, stored), Optional(false));
    }
    for (const QVariant& stored :
         {QVariant(u"yes"_s),
          QVariant(u""_s),
          QVariant(2),
          QVariant(1.0),
          QVariant(QStringList()),
          QVariant()}) {
        EXPECT_EQ(reading(readFlag, stored), std::nullopt);
    }
}

TEST(DefaultsStore, readsIntegersAndTheirTexts)
{
    EXPECT_THAT(reading(readInteger, 300), Optional(300));
    EXPECT_THAT(reading(readInteger, u"300"_s), Optional(300));
    EXPECT_THAT(reading(readInteger, u"-9223372036854775808"_s), Optional(INT64_MIN));
    for (const QVariant& stored :
         {QVariant(u"9223372036854775808"_s),
          QVariant(u"3.5"_s),
          QVariant(u""_s),
          QVariant(3.5),
          QVariant(true),
          QVariant(18446744073709551615ULL),
          QVariant()}) {
        EXPECT_EQ(reading(readInteger, stored), std::nullopt);
    }
}

TEST(DefaultsStore, readsTextOnly)
{
    EXPECT_THAT(reading(readText, u"naïve"_s), Optional(std::string("naïve")));
    EXPECT_THAT(reading(readText, u""_s), Optional(std::string()));
    for (const QVariant& stored :
         {QVariant(7), QVariant(QStringList{u"a"_s, u"b"_s}), QVariant()}) {
        EXPECT_EQ(reading(readText, stored), std::nullopt);
    }
}

TEST(DefaultsStore, readsListsOfTextInEveryFormOfAnIniFile)
{
    EXPECT_THAT(
        reading(readTextList, QStringList{u"b"_s, u"a"_s}), Optional(ElementsAre("b", "a")));
    EXPECT_THAT(reading(readTextList, u"a"_s), Optional(ElementsAre("a")));
    EXPECT_THAT(reading(readTextList, QVariant()), Optional(IsEmpty()));
    EXPECT_EQ(reading(readTextList, 7), std::nullopt);
    EXPECT_EQ(reading(readTextList, QVariantList{1, 2}), std::nullopt);
}

TEST(DefaultsStore, readsDatesWithoutTheirFractions)
{
    const QDateTime local(QDate(2024, 5, 1), QTime(11, 30, 0, 999), QTimeZone(7200));
    EXPECT_THAT(reading(readDate, local), Optional(date("2024-05-01T09:30:00Z")));
    const QDateTime before1970(QDate(1969, 12, 31), QTime(23, 59, 58, 500), QTimeZone::utc());
    EXPECT_THAT(reading(readDate, before1970), Optional(date("1969-12-31T23:59:58Z")));
    EXPECT_EQ(reading(readDate, QDateTime()), std::nullopt);
    EXPECT_EQ(reading(readDate, u"2024-05-01T09:30:00Z"_s), std::nullopt);
    EXPECT_EQ(reading(readDate, 1714555800), std::nullopt);
}

TEST(DefaultsStore, writesDatesInUtc)
{
    Fakes::MemoryDefaultsStore defaults;
    writeDate(defaults, key, date("2024-05-01T09:30:00Z"));
    EXPECT_EQ(
        defaults.values.at(key), QDateTime(QDate(2024, 5, 1), QTime(9, 30), QTimeZone::utc()));
    EXPECT_EQ(defaults.values.at(key).toDateTime().timeSpec(), Qt::UTC);
}

TEST(DefaultsStore, hasNoProblemOfItsOwn)
{
    EXPECT_EQ(Fakes::MemoryDefaultsStore().problem(), std::nullopt);
}

}  // namespace
