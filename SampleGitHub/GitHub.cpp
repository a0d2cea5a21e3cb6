#include "SampleGitHub/GitHub.h"

#include "PullRequestKit/Errors.h"
#include "SampleGitHub/FactsAnswer.h"
#include "SampleGitHub/GraphQl.h"
#include "SampleGitHub/Paging.h"
#include "SampleGitHub/Rendering.h"
#include "SampleGitHub/SearchQuery.h"

#include <algorithm>
#include <numeric>

namespace SampleGitHub {
namespace {

namespace json = boost::json;

constexpr std::int64_t searchLimit = 1000;  // GitHub's maximum per query.
constexpr std::int64_t largestPage = 100;
constexpr std::size_t idLimit = 100;
constexpr std::int64_t firstRepositoryId = 700'000'000;

std::string jsonText(std::string_view text)
{
    return json::serialize(json::string(text));
}

std::string rendered(std::string_view message)
{
    return json::serialize(
        json::object{{"message", message}, {"documentation_url", "https://docs.github.com/rest"}});
}

std::optional<std::string> textVariable(const GraphQlRequest& request, std::string_view name)
{
    const json::value* const value = request.variables.if_contains(name);
    if (value == nullptr || !value->is_string()) {
        return std::nullopt;
    }
    return std::string(value->get_string());
}

std::string joined(const std::vector<std::string_view>& items)
{
    std::string text;
    text.reserve(
        std::accumulate(items.begin(), items.end(), items.size(), [](std::size_t sum, auto item) {
            return sum + item.size();
        }));
    for (const std::string_view item : items) {
        text += text.empty() ? "" : ",";
        text += item;
    }
    return text;
}

RequestKind kindOfField(std::string_view field)
{
    if (field == "search") {
        return RequestKind::search;
    }
    if (field == "nodes") {
        return RequestKind::rules;
    }
    if (field == "repository" || field == "rateLimit") {
        return RequestKind::facts;
    }
    return field == "viewer" ? RequestKind::authentication : RequestKind::other;
}

}  // namespace

GitHub::GitHub(Scenario scenario, PullRequestKit::Date now, GitHubOptions options)
    : _scenario(std::move(scenario))
    , _now(now)
    , _options(std::move(options))
{
    for (const PullRequest& pullRequest : _scenario.pullRequests) {
        _searchNodes.push_back(renderSearchNode(pullRequest, now));
    }
    for (const Repository& repository : _scenario.repositories) {
        const auto id = firstRepositoryId + static_cast<std::int64_t>(_repositories.size());
        _repositories.push_back(renderRepository(repository, id, now));
    }
    _repositoriesByName.resize(_repositories.size());
    std::iota(_repositoriesByName.begin(), _repositoriesByName.end(), std::size_t{0});
    std::ranges::stable_sort(_repositoriesByName, {}, [this](std::size_t index) {
        return _scenario.repositories[index].fullName;
    });
    renderRefs();
}

void GitHub::renderRefs()
{
    for (const Repository& repository : _scenario.repositories) {
        for (const BranchRules& rules : repository.branches) {
            const std::string id = refId(repository.fullName, rules.name);
            _refNodes.insert_or_assign(id, renderRefNode(id, rules));
        }
    }
    for (const PullRequest& pullRequest : _scenario.pullRequests) {
        if (!pullRequest.isBaseDeleted) {
            const std::string id = refId(pullRequest.repository, pullRequest.base);
            _refNodes.try_emplace(id, renderRefNode(id, BranchRules{pullRequest.base, {}, {}}));
        }
    }
}

Answer GitHub::answer(const Request& request) const
{
    const std::string_view target = request.target;
    const std::string_view path = target.substr(0, target.find('?'));
    Answer answer{RequestKind::other, {404, {}, rendered("Not Found")}};
    if (request.method == "POST" && path == "/graphql") {
        answer = graphQl(request);
    } else if (request.method == "GET" && path == "/") {
        answer = {
            RequestKind::authentication,
            {200, {}, R"({"current_user_url":"https://api.github.com/user"})"}};
    } else if (request.method == "GET" && path == "/rate_limit") {
        answer = {RequestKind::authentication, rateLimit()};
    } else if (request.method == "GET" && path == "/user/repos") {
        answer = {
            RequestKind::repositories,
            repositories(target.substr(std::min(path.size() + 1, target.size())))};
    }
    if (!isAuthorized(request)) {
        answer.response = {401, {}, rendered("Bad credentials")};
    } else {
        answer.response.headers["X-Oauth-Scopes"] = "gist, read:org, repo, workflow";
    }
    return answer;
}

bool GitHub::isAuthorized(const Request& request) const
{
    const auto found = request.headers.find("authorization");
    if (!_scenario.account || found == request.headers.end()) {
        return false;
    }
    const std::string_view value = found->second;
    const std::size_t blank = value.find(' ');
    return blank != std::string_view::npos && value.substr(blank + 1) == accountToken;
}

Answer GitHub::graphQl(const Request& request) const
{
    GraphQlRequest call;
    try {
        call = parseGraphQlRequest(request.body);
    } catch (const PullRequestKit::DecodingError&) {
        return {RequestKind::other, {400, {}, rendered("Problems parsing JSON")}};
    }
    const std::string field = call.fields.empty() ? std::string() : call.fields.front().name;
    const RequestKind kind = kindOfField(field);
    switch (kind) {
    case RequestKind::authentication:
        return {kind, {200, {}, viewer()}};
    case RequestKind::search:
        return {kind, {200, {}, call.fields.size() > 1 ? searchCounts(call) : searchPage(call)}};
    case RequestKind::rules:
        return {kind, {200, {}, nodes(call)}};
    case RequestKind::facts:
        return {kind, {200, {}, answerFacts(call, _scenario, _options, _now)}};
    case RequestKind::repositories:
    case RequestKind::other:
        break;
    }
    const std::string message = "Field '" + field + "' doesn't exist on type 'Query'";
    return {kind, {200, {}, renderGraphQlError(message)}};
}

std::string GitHub::viewer() const
{
    return R"({"data":{"viewer":{"login":)" + jsonText(_scenario.account.value_or(Account()).login)
           + "}}}";
}

std::vector<std::size_t> GitHub::matches(
    const GraphQlRequest& request, const GraphQlField& field) const
{
    const auto text = textVariable(request, field.variable);
    if (!text) {
        throw SearchError(
            "Variable $" + field.variable + " of type String! was provided invalid value");
    }
    const bool isAdvanced = field.type == "ISSUE_ADVANCED";
    if (!isAdvanced && field.type != "ISSUE") {
        throw SearchError(
            "Argument 'type' on Field 'search' has an invalid value (" + field.type + ").");
    }
    const SearchType type = isAdvanced ? SearchType::issueAdvanced : SearchType::issue;
    return search(_scenario, parseSearchQuery(*text, type, _options.terms));
}

/// Several searches under aliases that request only the number of matches.
std::string GitHub::searchCounts(const GraphQlRequest& request) const
{
    std::string counts;
    try {
        for (const GraphQlField& field : request.fields) {
            counts += counts.empty() ? "" : ",";
            counts += jsonText(field.alias) + R"(:{"issueCount":)"
                      + std::to_string(matches(request, field).size()) + "}";
        }
    } catch (const SearchError& error) {
        return renderGraphQlError(error.what());
    }
    return R"({"data":{)" + counts + "}}";
}

std::string GitHub::searchPage(const GraphQlRequest& request) const
{
    const GraphQlField& field = request.fields.front();
    if (!field.first || *field.first < 1 || *field.first > largestPage) {
        return renderGraphQlError("The search needs a `first` value of 1 to 100.");
    }
    const auto cursor = textVariable(request, "cursor");
    const auto skipped = cursor ? resultsBefore(*cursor) : 0;
    if (!skipped) {
        return renderGraphQlError("`" + *cursor + "` does not appear to be a valid cursor.");
    }
    std::vector<std::size_t> found;
    try {
        found = matches(request, field);
    } catch (const SearchError& error) {
        return renderGraphQlError(error.what());
    }
    const auto reachable = std::min(static_cast<std::int64_t>(found.size()), searchLimit);
    const std::int64_t end = std::min(*skipped + *field.first, reachable);
    std::vector<std::string_view> page;
    for (std::int64_t index = *skipped; index < end; ++index) {
        page.emplace_back(_searchNodes[found[static_cast<std::size_t>(index)]]);
    }
    return R"({"data":{"search":{"issueCount":)" + std::to_string(found.size())
           + R"(,"pageInfo":{"hasNextPage":)" + (end < reachable ? "true" : "false")
           + R"(,"endCursor":)" + (page.empty() ? "null" : jsonText(cursorBehind(end)))
           + R"(},"nodes":[)" + joined(page) + "]}}}";
}

std::string GitHub::nodes(const GraphQlRequest& request) const
{
    const json::value* const ids = request.variables.if_contains("ids");
    if (ids == nullptr || !ids->is_array()) {
        return renderGraphQlError("Variable $ids of type [ID!]! was provided invalid value");
    }
    if (ids->get_array().size() > idLimit) {
        return renderGraphQlError(
            "You may not provide more than 100 node ids; you provided "
            + std::to_string(ids->get_array().size()) + ".");
    }
    std::vector<std::string_view> nodes;
    json::array errors;
    for (const json::value& id : ids->get_array()) {
        const std::string text =
            id.is_string() ? std::string(id.get_string()) : json::serialize(id);
        const auto found = _refNodes.find(text);
        if (found != _refNodes.end()) {
            nodes.emplace_back(found->second);
            continue;
        }
        errors.push_back(
            {{"type", "NOT_FOUND"},
             {"path", {"nodes", nodes.size()}},
             {"message", "Could not resolve to a node with the global id of '" + text + "'"}});
        nodes.emplace_back("null");
    }
    return R"({"data":{"nodes":[)" + joined(nodes) + "]}"
           + (errors.empty() ? "" : R"(,"errors":)" + json::serialize(errors)) + "}";
}

Response GitHub::rateLimit() const
{
    const Quota& quota = _options.quota;
    const auto resource = [&](const char* name) {
        return jsonText(name) + R"(:{"limit":)" + std::to_string(quota.limit) + R"(,"used":)"
               + std::to_string(quota.limit - quota.remaining) + R"(,"remaining":)"
               + std::to_string(quota.remaining) + R"(,"reset":)"
               + std::to_string((_now + quota.end).time_since_epoch().count()) + "}";
    };
    return {
        200,
        {},
        R"({"resources":{)" + resource("core") + "," + resource("graphql") + "}," + resource("rate")
            + "}"};
}

Response GitHub::repositories(std::string_view query) const
{
    const auto parameters = queryParameters(query);
    const auto found = parameters.find("affiliation");
    const std::string affiliations =
        found == parameters.end() ? "owner,collaborator,organization_member" : found->second;
    std::vector<std::string_view> listed;
    for (const std::size_t index : _repositoriesByName) {
        if (affiliations.find(_scenario.repositories[index].affiliation) != std::string::npos) {
            listed.emplace_back(_repositories[index]);
        }
    }
    constexpr std::int64_t usualPage = 30;
    const auto size = std::min(positiveParameter(parameters, "per_page", usualPage), largestPage);
    const auto count = static_cast<std::int64_t>(listed.size());
    const std::int64_t page = positiveParameter(parameters, "page", 1);
    const std::int64_t pageCount = (count + size - 1) / size;
    const std::vector<std::string_view> shown(
        listed.begin() + std::min((page - 1) * size, count),
        listed.begin() + std::min(page * size, count));
    Response response{200, {}, "[" + joined(shown) + "]"};
    const std::string links =
        linkHeader("https://api.github.com/user/repos", parameters, page, pageCount);
    if (!links.empty()) {
        response.headers["Link"] = links;
    }
    return response;
}

}  // namespace SampleGitHub
