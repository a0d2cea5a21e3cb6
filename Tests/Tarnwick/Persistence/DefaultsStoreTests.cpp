#include "Tarnwick/Persistence/DefaultsStore.h"

#include "Fakes/MemoryDefaultsStore.h"
#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

/// What a reader makes of one stored value.
template<typename Reader>
auto reading(Reader read, const char* stored)
{
    MemoryDefaultsStore defaults;
    defaults.set("key", stored);
    return read(defaults, "key");
}

TEST(DefaultsStore, yieldsNothingForAnAbsentKey)
{
    const MemoryDefaultsStore defaults;
    EXPECT_EQ(readFlag(defaults, "key"), std::nullopt);
    EXPECT_EQ(readInteger(defaults, "key"), std::nullopt);
    EXPECT_EQ(readText(defaults, "key"), std::nullopt);
    EXPECT_EQ(readTextList(defaults, "key"), std::nullopt);
    EXPECT_EQ(readDate(defaults, "key"), std::nullopt);
}

TEST(DefaultsStore, readsFlags)
{
    for (const char* const stored : {"true", "True", "1"}) {
        EXPECT_THAT(reading(readFlag, stored), Optional(true));
    }
    for (const char* const stored : {"false", "FALSE", "0"}) {
        EXPECT_THAT(reading(readFlag, stored), Optional(false));
    }
    for (const char* const stored : {"yes", "", "2", "1.0", "true, true", "@Empty()"}) {
        EXPECT_EQ(reading(readFlag, stored), std::nullopt);
    }
}

TEST(DefaultsStore, readsIntegers)
{
    EXPECT_THAT(reading(readInteger, "300"), Optional(300));
    EXPECT_THAT(reading(readInteger, "-9223372036854775808"), Optional(INT64_MIN));
    for (const char* const stored : {"9223372036854775808", "3.5", "", "true", "1, 2"}) {
        EXPECT_EQ(reading(readInteger, stored), std::nullopt);
    }
}

TEST(DefaultsStore, readsASingleText)
{
    EXPECT_THAT(reading(readText, "naïve"), Optional(std::string("naïve")));
    EXPECT_THAT(reading(readText, R"("a, b")"), Optional(std::string("a, b")));
    EXPECT_THAT(reading(readText, ""), Optional(std::string()));
    for (const char* const stored : {"a, b", "@Empty()", "@Date(2024-05-01T09:30:00Z)"}) {
        EXPECT_EQ(reading(readText, stored), std::nullopt);
    }
}

TEST(DefaultsStore, readsLists)
{
    EXPECT_THAT(reading(readTextList, "b, a"), Optional(ElementsAre("b", "a")));
    EXPECT_THAT(reading(readTextList, "a"), Optional(ElementsAre("a")));
    EXPECT_THAT(reading(readTextList, "@Empty()"), Optional(IsEmpty()));
    EXPECT_EQ(reading(readTextList, "@Date(2024-05-01T09:30:00Z)"), std::nullopt);
}

TEST(DefaultsStore, readsDatesAndNoTexts)
{
    EXPECT_THAT(
        reading(readDate, "@Date(2024-05-01T09:30:00Z)"), Optional(date("2024-05-01T09:30:00Z")));
    EXPECT_EQ(reading(readDate, "2024-05-01T09:30:00Z"), std::nullopt);
    EXPECT_EQ(reading(readDate, "1714555800"), std::nullopt);
}

TEST(DefaultsStore, hasNoProblemOfItsOwn)
{
    EXPECT_EQ(MemoryDefaultsStore().problem(), std::nullopt);
}

}  // namespace
