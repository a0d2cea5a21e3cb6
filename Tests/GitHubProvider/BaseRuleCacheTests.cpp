#include "GitHubProvider/BaseRuleCache.h"

#include <thread>

#include <gmock/gmock.h>

namespace {

using namespace GitHub;
using namespace std::chrono_literals;

class BaseRuleCacheTest : public testing::Test {
protected:
    std::chrono::system_clock::time_point now{std::chrono::hours{500'000}};
    BaseRuleCache cache{[this] { return now; }};
};

TEST_F(BaseRuleCacheTest, knowsNothingAtFirstAndKeepsTheOrderOfWhatIsMissing)
{
    EXPECT_EQ(cache.lookup({"b", "a", "b"}), (BaseRuleCache::Lookup{{}, {"b", "a", "b"}}));
}

TEST_F(BaseRuleCacheTest, aFreshEntryWithoutCountIsNeitherCountedNorMissing)
{
    cache.store({{"a", 2}, {"b", std::nullopt}});
    EXPECT_EQ(cache.lookup({"a", "b", "c"}), (BaseRuleCache::Lookup{{{"a", 2}}, {"c"}}));
}

TEST_F(BaseRuleCacheTest, anEntryLoadedExactly300SecondsAgoIsMissing)
{
    cache.store({{"a", 2}});
    now += 300s - 1ns;
    EXPECT_EQ(cache.lookup({"a"}), (BaseRuleCache::Lookup{{{"a", 2}}, {}}));
    now += 1ns;
    EXPECT_EQ(cache.lookup({"a"}), (BaseRuleCache::Lookup{{}, {"a"}}));
}

TEST_F(BaseRuleCacheTest, anEntryFromTheFutureIsMissing)
{
    cache.store({{"a", 2}});
    now -= 1ns;
    EXPECT_EQ(cache.lookup({"a"}), (BaseRuleCache::Lookup{{}, {"a"}}));
    now += 1ns;
    EXPECT_EQ(cache.lookup({"a"}), (BaseRuleCache::Lookup{{{"a", 2}}, {}}));
}

TEST_F(BaseRuleCacheTest, storingAgainReplacesCountAndTime)
{
    cache.store({{"a", 2}});
    now += 200s;
    cache.store({{"a", std::nullopt}});
    now += 200s;
    EXPECT_EQ(cache.lookup({"a"}), (BaseRuleCache::Lookup{{}, {}}));
}

TEST_F(BaseRuleCacheTest, servesSeveralThreadsAtOnce)
{
    const auto work = [this](const std::string& prefix) {
        for (int round = 0; round < 200; ++round) {
            const std::string id = prefix + std::to_string(round);
            cache.store({{id, round}});
            EXPECT_EQ(cache.lookup({id}).counts.at(id), round);
        }
    };
    std::jthread first(work, "a");
    std::jthread second(work, "b");
    first.join();
    second.join();
    EXPECT_TRUE(cache.lookup({"a0", "a199", "b0", "b199"}).missing.empty());
}

}  // namespace
