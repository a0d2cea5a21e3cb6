#include "GitHubProvider/FactsReading.h"

#include "GitHubProvider/FactsRecords.h"
#include "GitHubProvider/RequestFailure.h"
#include "PullRequestKit/Errors.h"
#include "PullRequestKit/Json/Reading.h"

#include <algorithm>
#include <utility>

namespace GitHub {
namespace {

namespace json = boost::json;

using PullRequestKit::PullRequest;
using PullRequestKit::PullRequestFacts;

std::optional<std::size_t> placeOf(std::string_view name)
{
    const auto* const found = std::ranges::find(factsFields, name, &FactsField::name);
    return found != factsFields.end()
               ? std::optional(static_cast<std::size_t>(found - factsFields.begin()))
               : std::nullopt;
}

/// The field named in "Field 'stack' doesn't exist on type 'PullRequest'".
std::optional<std::string_view> fieldThatIsUnknown(std::string_view message)
{
    constexpr std::string_view before = "Field '";
    constexpr std::string_view after = "' doesn't exist on type '";
    const std::size_t start = message.find(before);
    const std::size_t end = message.find(after);
    if (start == std::string_view::npos || end == std::string_view::npos
        || end < start + before.size()) {
        return std::nullopt;
    }
    return message.substr(start + before.size(), end - start - before.size());
}

/// An unknown nested field disables the top-level field in the error's path.
void noteUnknownField(UnknownFields& unknown, std::string_view name, const json::object& error)
{
    if (const json::array* const path = Lenient::list(error, "path")) {
        for (const json::value& step : *path) {
            const auto place = step.is_string() ? placeOf(step.get_string()) : std::nullopt;
            if (place) {
                unknown.set(*place);
                return;
            }
        }
    }
    if (const auto place = placeOf(name)) {
        unknown.set(*place);
        return;
    }
    for (std::size_t place = 0; place < factsFields.size(); ++place) {
        const std::string part = " " + std::string(name) + " ";
        if (factsFields[place].selection.find(part) != std::string_view::npos) {
            unknown.set(place);
        }
    }
}

void readErrors(FactsPage& page, const json::object& answer)
{
    const json::array* const errors = Lenient::list(answer, "errors");
    if (errors == nullptr) {
        return;
    }
    for (const json::value& entry : *errors) {
        const json::object* const error = entry.if_object();
        if (error == nullptr) {
            continue;
        }
        const std::string_view message = Lenient::text(*error, "message").value_or("");
        if (const auto field = fieldThatIsUnknown(message)) {
            noteUnknownField(page.unknownFields, *field, *error);
        }
        page.isSecondaryLimit = page.isSecondaryLimit || tellsOfSecondaryLimit(message);
        page.isLimited = page.isLimited || tellsOfLimit(message);
    }
}

void readRow(
    FactsPage& page,
    const json::object& data,
    std::size_t place,
    const PullRequest& asked,
    PullRequestKit::Date askedAt)
{
    const json::object* const repository = Lenient::object(data, factsAlias(place));
    const auto name =
        repository != nullptr ? Lenient::text(*repository, "nameWithOwner") : std::nullopt;
    const json::object* const found = name ? Lenient::object(*repository, "pullRequest") : nullptr;
    auto facts = found != nullptr ? factsOf(*found) : std::nullopt;
    if (!name || !facts) {
        return;
    }
    facts->askedAt = askedAt;
    facts->updatedAt = asked.updatedAt;
    if (*name == asked.id.repository) {
        page.facts.insert_or_assign(asked.id, *std::move(facts));
        return;
    }
    PullRequestKit::PullRequestID renamed = asked.id;
    renamed.repository = *name;
    page.facts.try_emplace(std::move(renamed), *std::move(facts));
}

}  // namespace

FactsPage readFacts(
    std::string_view answer,
    std::span<const PullRequest* const> pullRequests,
    PullRequestKit::Date askedAt)
{
    FactsPage page;
    try {
        const PullRequestKit::Json::Document document(answer);
        const json::object* const root = document.root().if_object();
        if (root == nullptr) {
            return page;
        }
        readErrors(page, *root);
        const json::object* const data = Lenient::object(*root, "data");
        if (data == nullptr) {
            return page;
        }
        page.hasData = true;
        for (std::size_t place = 0; place < pullRequests.size(); ++place) {
            readRow(page, *data, place, *pullRequests[place], askedAt);
        }
        if (const json::object* const limit = Lenient::object(*data, "rateLimit")) {
            page.quota = quotaOf(*limit);
        }
    } catch (const PullRequestKit::DecodingError&) {
        page.hasData = false;
    }
    return page;
}

}  // namespace GitHub
