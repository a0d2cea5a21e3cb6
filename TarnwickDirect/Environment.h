#pragma once

#include <map>
#include <string>

namespace TarnwickDirect {

/// Takes out of the process's environment what makes `gh` print something else than JSON, or ask
/// another host than github.com. Children inherit it. To be called before any thread starts,
/// because the environment cannot be changed safely afterwards.
void prepareEnvironment();

/// The environment as it is. Requires: no thread changes it.
std::map<std::string, std::string> environment();

}  // namespace TarnwickDirect
