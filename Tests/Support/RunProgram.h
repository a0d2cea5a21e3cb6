#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace TestSupport {

struct ProgramResult {
    int status = 0;  ///< The exit status, or 128 and the number of the ending signal.
    std::string output;
    std::string errors;
};

/// Runs a program (found through this process' PATH when it has no slash) to its end, with exactly
/// this environment and nothing to read. What it prints passes through files in `folder`. Throws
/// `std::system_error` when it cannot be started.
ProgramResult runProgram(
    const std::string& executable,
    const std::vector<std::string>& arguments,
    const std::map<std::string, std::string>& environment,
    const std::filesystem::path& folder);

}  // namespace TestSupport
