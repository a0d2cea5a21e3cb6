#include "SampleGitHub/FactsDocument.h"

#include "SampleGitHub/SearchQuery.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace SampleGitHub {
namespace {

namespace json = boost::json;

constexpr std::array<std::string_view, 9> pullRequestFields{
    "headRefOid",
    "reviewDecision",
    "isInMergeQueue",
    "mergeQueueEntry",
    "autoMergeRequest",
    "viewerLatestReview",
    "reviewThreads",
    "stackEntry",
    "stack"};

std::string textArgument(std::string_view arguments, std::string_view name)
{
    const std::string key = std::string(name) + ":";
    const std::size_t place = arguments.find(key);
    const std::size_t start = place == std::string_view::npos ? place : place + key.size();
    if (start >= arguments.size() || arguments[start] != '"') {
        throw SearchError("Argument '" + std::string(name) + "' on Field 'repository' is missing.");
    }
    std::size_t end = start + 1;
    while (end < arguments.size() && arguments[end] != '"') {
        end += arguments[end] == '\\' ? 2U : 1U;
    }
    json::error_code error;
    const json::value text = json::parse(arguments.substr(start, end + 1 - start), error);
    if (error || !text.is_string()) {
        throw SearchError("Parse error on " + std::string(arguments) + ".");
    }
    return std::string(text.get_string());
}

std::int64_t pullRequestNumber(const GraphQlField& field)
{
    for (const GraphQlField& inner : fieldsOf(field.selection)) {
        constexpr std::string_view key = "number:";
        const std::string_view arguments = inner.arguments;
        const std::size_t place = arguments.find(key);
        std::int64_t number = 0;
        const char* const end = arguments.data() + arguments.size();
        if (inner.name == "pullRequest" && place != std::string_view::npos
            && std::from_chars(arguments.data() + place + key.size(), end, number).ec
                   == std::errc()) {
            return number;
        }
    }
    throw SearchError("The sample GitHub needs a pullRequest(number:) in every repository.");
}

json::object unknownField(const std::string& name, bool isOfPullRequest)
{
    const char* const type = isOfPullRequest ? "PullRequest" : "Query";
    return {
        {"path", {isOfPullRequest ? "fragment facts" : "query", name}},
        {"extensions", {{"code", "undefinedField"}, {"typeName", type}, {"fieldName", name}}},
        {"message", "Field '" + name + "' doesn't exist on type '" + type + "'"}};
}

}  // namespace

FactsDocument readFactsDocument(const GraphQlRequest& request)
{
    FactsDocument document;
    for (const GraphQlField& field : request.fields) {
        if (field.name == "rateLimit") {
            document.hasRateLimit = true;
            continue;
        }
        if (field.name != "repository") {
            throw SearchError("Field '" + field.name + "' doesn't exist on type 'Query'");
        }
        document.rows.push_back(
            {field.alias,
             textArgument(field.arguments, "owner"),
             textArgument(field.arguments, "name"),
             pullRequestNumber(field)});
    }
    const std::size_t fragment = request.document.find("\nfragment ");
    if (fragment != std::string::npos) {
        for (const GraphQlField& field :
             topFields(std::string_view(request.document).substr(fragment))) {
            document.fields.push_back(field.name);
        }
    }
    return document;
}

json::array unknownFieldErrors(
    const FactsDocument& document, const std::set<std::string>& withoutFields)
{
    json::array errors;
    for (const std::string& name : document.fields) {
        const bool isKnown = std::ranges::find(pullRequestFields, name) != pullRequestFields.end();
        if (!isKnown || withoutFields.contains(name)) {
            errors.push_back(unknownField(name, true));
        }
    }
    if (document.hasRateLimit && withoutFields.contains("rateLimit")) {
        errors.push_back(unknownField("rateLimit", false));
    }
    return errors;
}

}  // namespace SampleGitHub
