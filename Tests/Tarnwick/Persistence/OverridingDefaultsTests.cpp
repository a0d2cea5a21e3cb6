#include "Tarnwick/Persistence/OverridingDefaults.h"

#include "Fakes/MemoryDefaultsStore.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using Tarnwick::OverridingDefaults;

TEST(OverridingDefaults, haveAnotherValueForOneKeyThatIsNeverStored)
{
    const auto stored = std::make_shared<Fakes::MemoryDefaultsStore>();
    stored->values[u"one"_s] = u"stored"_s;
    stored->values[u"two"_s] = u"stored"_s;
    OverridingDefaults defaults(stored, u"one"_s, u"for once"_s);
    EXPECT_EQ(defaults.value(u"one"_s), u"for once"_s);
    EXPECT_EQ(defaults.value(u"two"_s), u"stored"_s);
    EXPECT_EQ(defaults.value(u"three"_s), std::nullopt);
    defaults.change([&] {
        defaults.set(u"one"_s, u"changed"_s);
        defaults.set(u"two"_s, u"changed"_s);
    });
    EXPECT_EQ(defaults.value(u"one"_s), u"for once"_s);
    EXPECT_EQ(stored->values.at(u"one"_s), u"stored"_s);
    EXPECT_EQ(stored->values.at(u"two"_s), u"changed"_s);
    defaults.remove(u"one"_s);
    defaults.remove(u"two"_s);
    EXPECT_EQ(stored->values.at(u"one"_s), u"stored"_s);
    EXPECT_FALSE(stored->values.contains(u"two"_s));
}

TEST(OverridingDefaults, haveTheKeyAmongTheOthers)
{
    const auto stored = std::make_shared<Fakes::MemoryDefaultsStore>();
    stored->values[u"a.one"_s] = u"stored"_s;
    stored->values[u"b.two"_s] = u"stored"_s;
    const std::vector<QString> both{u"a.one"_s, u"a.three"_s};
    EXPECT_EQ(OverridingDefaults(stored, u"a.three"_s, true).keys(u"a."_s), both);
    const std::vector<QString> one{u"a.one"_s};
    EXPECT_EQ(OverridingDefaults(stored, u"a.one"_s, true).keys(u"a."_s), one);
    EXPECT_EQ(OverridingDefaults(stored, u"b.two"_s, true).keys(u"a."_s), one);
}

}  // namespace
