#pragma once

#include <boost/json.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace SampleGitHub {

/// A field of an operation: `alias: name(query:$variable, type:TYPE, first:1) { selection }`.
struct GraphQlField {
    std::string alias;  ///< The name if there is no alias.
    std::string name;
    std::string variable;  ///< Of the argument `query`, without "$".
    std::string type;      ///< The argument `type`.
    std::optional<std::int64_t> first;
    std::string arguments;  ///< All of them, unparsed.
    std::string selection;  ///< Unparsed.

    bool operator==(const GraphQlField&) const = default;
};

/// A GraphQL request, parsed as far as the sample needs it: no types, no fragments.
struct GraphQlRequest {
    std::string document;
    std::vector<GraphQlField> fields;
    boost::json::object variables;
};

/// Parses a request's body. Throws `PullRequestKit::DecodingError`. Safe from any thread.
GraphQlRequest parseGraphQlRequest(std::string_view body);

/// The top-level fields of a document's first operation. Safe from any thread.
std::vector<GraphQlField> topFields(std::string_view document);

/// The fields of a selection, up to the first other element. Safe from any thread.
std::vector<GraphQlField> fieldsOf(std::string_view selection);

/// A GraphQL answer with an error and no data.
std::string renderGraphQlError(std::string_view message);

}  // namespace SampleGitHub
