#include "PullRequestKit/Date.h"

#include "Support/PullRequests.h"

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;
using std::chrono::seconds;

Date secondsSince1970(Date::rep count)
{
    return Date{seconds{count}};
}

TEST(Date, readsTheZuluForm)
{
    EXPECT_EQ(parseDate("1970-01-01T00:00:00Z"), secondsSince1970(0));
    EXPECT_EQ(parseDate("2024-05-01T09:30:00Z"), secondsSince1970(1'714'555'800));
    EXPECT_EQ(parseDate("1969-12-31T23:59:59Z"), secondsSince1970(-1));
}

TEST(Date, readsNumericOffsetsWithAndWithoutColon)
{
    const Date expected = secondsSince1970(1'714'555'800);
    EXPECT_EQ(parseDate("2024-05-01T11:30:00+02:00"), expected);
    EXPECT_EQ(parseDate("2024-05-01T11:30:00+0200"), expected);
    EXPECT_EQ(parseDate("2024-05-01T04:00:00-05:30"), expected);
    EXPECT_EQ(parseDate("2024-05-01T04:00:00-0530"), expected);
    EXPECT_EQ(parseDate("2024-05-01T09:30:00+00:00"), expected);
    EXPECT_EQ(parseDate("2024-05-01T09:30:00-00:00"), expected);
}

TEST(Date, carriesAnOffsetOverTheEndOfTheDay)
{
    EXPECT_EQ(parseDate("2024-03-01T00:30:00+01:00"), parseDate("2024-02-29T23:30:00Z"));
    EXPECT_EQ(parseDate("2023-12-31T23:30:00-01:00"), parseDate("2024-01-01T00:30:00Z"));
}

TEST(Date, knowsLeapDays)
{
    EXPECT_EQ(parseDate("2024-02-29T00:00:00Z"), secondsSince1970(1'709'164'800));
    EXPECT_EQ(parseDate("2000-02-29T00:00:00Z"), secondsSince1970(951'782'400));
    EXPECT_EQ(parseDate("2023-02-29T00:00:00Z"), std::nullopt);
    EXPECT_EQ(parseDate("1900-02-29T00:00:00Z"), std::nullopt);
}

TEST(Date, readsTheFirstAndTheLastInstant)
{
    EXPECT_EQ(parseDate("0000-01-01T00:00:00Z"), secondsSince1970(-62'167'219'200));
    EXPECT_EQ(parseDate("9999-12-31T23:59:59Z"), secondsSince1970(253'402'300'799));
}

TEST(RefusedDate, isNoDate)
{
    for (const std::string_view each : std::initializer_list<std::string_view>{
             "2024-05-01T09:30:00.0Z",
             "2024-05-01T09:30:00.123Z",
             "2024-05-01T09:30:00,5Z",
             "2024-05-01T09:30:00.123+02:00",
             "",
             "2",
             "2024",
             "2024-05-01",
             "2024-05-01T",
             "2024-05-01T09:30",
             "2024-05-01T09:30Z",
             "2024-05-01T09:30:00",
             "2024-05-01T09:30:0",
             "2024-05-01T09:30:00+",
             "2024-05-01T09:30:00+0",
             "2024-05-01T09:30:00+02",
             "2024-05-01T09:30:00+02:",
             "2024-05-01T09:30:00+02:0",
             "2024-05-01T09:30:00+020",
             "2024-00-01T00:00:00Z",
             "2024-13-01T00:00:00Z",
             "2024-01-00T00:00:00Z",
             "2024-01-32T00:00:00Z",
             "2024-04-31T00:00:00Z",
             "2024-01-01T24:00:00Z",
             "2024-01-01T00:60:00Z",
             "2024-12-31T23:59:60Z",
             "2024-01-01T00:00:00+24:00",
             "2024-01-01T00:00:00+00:60",
             "0000-01-01T00:00:00+00:01",
             "9999-12-31T23:59:59-00:01",
             "yesterday",
             "1714555800",
             " 2024-05-01T09:30:00Z",
             "2024-05-01T09:30:00Z ",
             "2024-05-01T09:30:00ZZ",
             "2024-05-01T09:30:00Z+00:00",
             "2024-05-01 09:30:00Z",
             "2024-05-01t09:30:00Z",
             "2024-05-01T09:30:00z",
             "20240501T093000Z",
             "2024/05/01T09:30:00Z",
             "2024-05-01T09.30.00Z",
             "24-05-01T09:30:00Z",
             "12024-05-01T09:30:00Z",
             "+2024-05-01T09:30:00Z",
             "-2024-05-01T09:30:00Z",
             "2024-5-01T09:30:00Z",
             "2024-05-01T 9:30:00Z",
             "2024-05-01T-9:30:00Z",
             "2024-05-01T09:30:00+-2:00",
             "2024-05-01T09:30:00\u221202:00",
             "2024-05-01T09:30:00+02::00",
             std::string_view("2024-05-01T09:30:00Z\0", 21)}) {
        SCOPED_TRACE(each);
        EXPECT_EQ(parseDate(each), std::nullopt);
    }
}

TEST(Date, isWrittenInTheZuluForm)
{
    EXPECT_EQ(formatDate(secondsSince1970(1'714'555'800)), "2024-05-01T09:30:00Z");
    EXPECT_EQ(formatDate(secondsSince1970(-1)), "1969-12-31T23:59:59Z");
    EXPECT_EQ(formatDate(secondsSince1970(951'782'400)), "2000-02-29T00:00:00Z");
    EXPECT_EQ(formatDate(secondsSince1970(-62'167'219'200)), "0000-01-01T00:00:00Z");
    EXPECT_EQ(formatDate(secondsSince1970(253'402'300'799)), "9999-12-31T23:59:59Z");
}

RC_GTEST_PROP(DateProperties, isReadBackAsItWasWritten, ())
{
    const Date date = *anyDate();
    RC_ASSERT(parseDate(formatDate(date)) == date);
}

std::string twoDigits(int number)
{
    return std::string(number < 10 ? "0" : "") + std::to_string(number);
}

RC_GTEST_PROP(DateProperties, anOffsetMovesTheInstantTheOtherWay, ())
{
    const Date date = *anyDate();
    const auto minutes = *rc::gen::inRange(0, 24 * 60);
    std::string clock = formatDate(date);
    clock.pop_back();
    const std::string zone = twoDigits(minutes / 60) + twoDigits(minutes % 60);
    const auto earlier = parseDate(clock + "+" + zone);
    const auto later = parseDate(clock + "-" + zone);
    RC_PRE(earlier && later);
    RC_ASSERT(*earlier == date - std::chrono::minutes{minutes});
    RC_ASSERT(*later == date + std::chrono::minutes{minutes});
}

RC_GTEST_PROP(DateProperties, aTextWithOneOtherCharacterIsAnotherDateOrNone, ())
{
    const std::string text = formatDate(*anyDate());
    std::string changed = text;
    const auto place = *rc::gen::inRange<std::size_t>(0, text.size());
    changed[place] = *rc::gen::element('0', '1', '5', '9', ':', '-', '+', 'T', 'Z', '.', ' ');
    if (const auto date = parseDate(changed)) {
        RC_ASSERT(formatDate(*date) == changed);
    }
}

}  // namespace
