#pragma once

#include <chrono>

#include <gmock/gmock.h>

namespace PullRequestKit {}

namespace Tarnwick {}

/// `using namespace TestSupport;` is all that a test needs to say for the names it is written in.
namespace TestSupport {

using namespace PullRequestKit;
using namespace Tarnwick;
using namespace std::chrono_literals;
using namespace testing;

}  // namespace TestSupport
