#pragma once

#include "GitHubProvider/BaseRules.h"
#include "GitHubProvider/SearchQuery.h"
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
        return gh(GitHub::searchArguments(q, cursor));
    }

    /// The document that each search sends, without the "query=" before it.
    static boost::json::string searchDocument()
    {
        return GitHub::searchArguments("", {}).at(3).substr(6).c_str();
    }

    Result rules(const std::vector<std::string>& ids) const
    {
        return gh(GitHub::baseRulesArguments(ids));
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
             ".[] | {repository: .full_name, visibility, language, default_branch, archived}"});
    }
};

inline const boost::json::value& at(const boost::json::value& value, const char* pointer)
{
    return value.at_pointer(pointer);
}
