#include "Support/LeakCheck.h"

#include <gmock/gmock.h>

namespace {

const auto* const leakCheck = testing::AddGlobalTestEnvironment(new TestSupport::LeakCheck);

}  // namespace
