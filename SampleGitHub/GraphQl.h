#pragma once

#include <boost/json.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace SampleGitHub {

/// One field of an operation: `alias: name(query:$variable, type:TYPE, first:1) { selection }`.
struct GraphQlField {
    std::string alias;  ///< The name where there is no alias.
    std::string name;
    std::string variable;  ///< Of the argument `query`, without its "$".
    std::string type;      ///< The argument of that name.
    std::optional<std::int64_t> first;
    std::string arguments;  ///< All of them, as they stand in the document.
    std::string selection;  ///< Likewise.

    bool operator==(const GraphQlField&) const = default;
};

/// A GraphQL request, told apart as far as the sample needs it: no types, no fragments.
struct GraphQlRequest {
    std::string document;
    std::vector<GraphQlField> fields;
    boost::json::object variables;
};

/// Reads a request's body. Throws `PullRequestKit::DecodingError` when it is not what a GraphQL
/// request looks like. Safe from any thread.
GraphQlRequest parseGraphQlRequest(std::string_view body);

/// The fields at the top of a document's first operation. Safe from any thread.
std::vector<GraphQlField> topFields(std::string_view document);

/// The fields of a selection, up to the first thing that is none. Safe from any thread.
std::vector<GraphQlField> fieldsOf(std::string_view selection);

/// A GraphQL answer that tells of an error and has no data.
std::string renderGraphQlError(std::string_view message);

}  // namespace SampleGitHub
