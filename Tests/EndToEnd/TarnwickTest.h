#pragma once

#include "Support/SampleGitHubFixture.h"

#include <boost/json.hpp>

namespace TestSupport {

/// Runs the real program, which runs the real `gh`, which asks the sample GitHub.
class TarnwickTest : public SampleGitHubFixture {
protected:
    ProgramResult tarnwick(const std::vector<std::string>& arguments) const;

    /// What `list --json` prints, which must be one JSON document, whatever its exit status.
    boost::json::object listJson() const;

    /// Writes the settings file, below its `[General]` line.
    void writeSettings(const std::string& lines) const;

    /// Selects these repositories as an earlier run would have, for any reviewer.
    void select(const std::string& repositories) const;

    std::filesystem::path settingsFile() const;
    std::filesystem::path cacheFile() const;
};

/// Each row as "owner/name#number depth", with the warning behind it, in order.
std::vector<std::string> outline(const boost::json::object& list);

/// The whole file; empty when there is none.
std::string readFile(const std::filesystem::path& file);

}  // namespace TestSupport
