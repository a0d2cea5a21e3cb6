#pragma once

#include "SampleGitHub/GraphQl.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace SampleGitHub {

/// A pull request in a facts document: `alias: repository(owner:"…", name:"…") { …
/// pullRequest(number:…) { ...facts } }`.
struct FactsRow {
    std::string alias;
    std::string owner;
    std::string name;
    std::int64_t number = 0;

    bool operator==(const FactsRow&) const = default;
};

/// A document that requests pull requests by name and number.
struct FactsDocument {
    std::vector<FactsRow> rows;
    std::vector<std::string> fields;  ///< Of the fragment, in order.
    bool hasRateLimit = false;

    bool operator==(const FactsDocument&) const = default;
};

/// Throws `SearchError` with one English sentence where GitHub would. Safe from any thread.
FactsDocument readFactsDocument(const GraphQlRequest& request);

/// GitHub's errors on fields that it does not know or that `withoutFields` disables.
boost::json::array unknownFieldErrors(
    const FactsDocument& document, const std::set<std::string>& withoutFields);

}  // namespace SampleGitHub
