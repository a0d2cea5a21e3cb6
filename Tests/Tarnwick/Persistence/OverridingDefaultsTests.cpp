#include "Tarnwick/Persistence/OverridingDefaults.h"

#include "Fakes/MemoryDefaultsStore.h"

namespace {

using namespace TestSupport;

TEST(OverridingDefaults, haveAnotherValueForOneKeyThatIsNeverStored)
{
    const auto stored = std::make_shared<MemoryDefaultsStore>();
    stored->values["one"] = "stored";
    stored->values["two"] = "stored";
    OverridingDefaults defaults(stored, "one", "for once");
    EXPECT_EQ(defaults.value("one"), "for once");
    EXPECT_EQ(defaults.value("two"), "stored");
    EXPECT_EQ(defaults.value("three"), std::nullopt);
    defaults.change([&] {
        defaults.set("one", "changed");
        defaults.set("two", "changed");
    });
    EXPECT_EQ(defaults.value("one"), "for once");
    EXPECT_EQ(stored->values.at("one"), "stored");
    EXPECT_EQ(stored->values.at("two"), "changed");
    defaults.remove("one");
    defaults.remove("two");
    EXPECT_EQ(stored->values.at("one"), "stored");
    EXPECT_FALSE(stored->values.contains("two"));
}

TEST(OverridingDefaults, haveTheKeyAmongTheOthers)
{
    const auto stored = std::make_shared<MemoryDefaultsStore>();
    stored->values["a.one"] = "stored";
    stored->values["b.two"] = "stored";
    const std::vector<std::string> both{"a.one", "a.three"};
    EXPECT_EQ(OverridingDefaults(stored, "a.three", "true").keys("a."), both);
    const std::vector<std::string> one{"a.one"};
    EXPECT_EQ(OverridingDefaults(stored, "a.one", "true").keys("a."), one);
    EXPECT_EQ(OverridingDefaults(stored, "b.two", "true").keys("a."), one);
}

}  // namespace
