#pragma once

#include "SampleGitHub/GraphQl.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace SampleGitHub {

/// One pull request that a document asks for: `alias: repository(owner:"…", name:"…") { …
/// pullRequest(number:…) { ...facts } }`.
struct FactsRow {
    std::string alias;
    std::string owner;
    std::string name;
    std::int64_t number = 0;

    bool operator==(const FactsRow&) const = default;
};

/// A document that asks for pull requests by their names and numbers.
struct FactsDocument {
    std::vector<FactsRow> rows;
    std::vector<std::string> fields;  ///< Of the fragment, in its order.
    bool hasRateLimit = false;

    bool operator==(const FactsDocument&) const = default;
};

/// Throws `SearchError` with one English sentence where GitHub would refuse the document too.
/// Safe from any thread.
FactsDocument readFactsDocument(const GraphQlRequest& request);

/// GitHub's errors about the fields that it does not know, or that it is told not to know; empty
/// when there are none.
boost::json::array unknownFieldErrors(
    const FactsDocument& document, const std::set<std::string>& withoutFields);

}  // namespace SampleGitHub
