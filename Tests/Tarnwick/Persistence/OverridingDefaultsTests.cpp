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
}

}  // namespace
