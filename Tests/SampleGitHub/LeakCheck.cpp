#include "Support/LeakCheck.h"

namespace {

const auto* const leakCheck = testing::AddGlobalTestEnvironment(new TestSupport::LeakCheck);

}  // namespace
