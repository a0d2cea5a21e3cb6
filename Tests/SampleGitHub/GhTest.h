#pragma once

#include "GhDocuments.h"
#include "Support/SampleGitHubFixture.h"

#include <boost/json.hpp>
#include <optional>
#include <string>
#include <vector>

/// Runs of `gh` with the arguments that Tarnwick gives it.
class GhTest : public TestSupport::SampleGitHubFixture {
protected:
    using Result = TestSupport::ProgramResult;

    Result status() const { return gh({"auth", "status", "--hostname", "github.com"}); }

    Result search(const std::string& q, const std::optional<std::string>& cursor = {}) const
    {
        std::vector<std::string> arguments{
            "api", "graphql", "-f", std::string("query=") + Documents::search, "-f", "q=" + q};
        if (cursor) {
            arguments.insert(arguments.end(), {"-f", "cursor=" + *cursor});
        }
        return gh(arguments);
    }

    Result rules(const std::vector<std::string>& ids) const
    {
        std::vector<std::string> arguments{
            "api", "graphql", "-f", std::string("query=") + Documents::rules};
        for (const std::string& id : ids) {
            arguments.insert(arguments.end(), {"-F", "ids[]=" + id});
        }
        return gh(arguments);
    }

    Result repositories() const
    {
        return gh(
            {"api",
             "--hostname",
             "github.com",
             "user/repos?per_page=100&affiliation=owner,collaborator,organization_member",
             "--paginate",
             "--jq",
             Documents::repositories});
    }
};

inline const boost::json::value& at(const boost::json::value& value, const char* pointer)
{
    return value.at_pointer(pointer);
}
