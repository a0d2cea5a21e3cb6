#pragma once

#include <map>
#include <string>
#include <vector>

namespace ProcessHelper {

/// What the helper does; yields its exit status. Missing arguments are a test's mistake and throw.
using Behaviour = int (*)(const std::vector<std::string>& arguments);

/// Every behaviour by the name that the helper's first argument gives.
const std::map<std::string, Behaviour>& behaviours();

}  // namespace ProcessHelper
