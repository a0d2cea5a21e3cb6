#pragma once

#include <map>
#include <string>

namespace TarnwickDirect {

/// Removes variables that make `gh` print anything but JSON or use another host than github.com.
/// Child processes inherit the environment. Call before any thread starts, because changing the
/// environment is not thread-safe.
void prepareEnvironment();

/// The current environment. Requires: no other thread changes it.
std::map<std::string, std::string> environment();

}  // namespace TarnwickDirect
