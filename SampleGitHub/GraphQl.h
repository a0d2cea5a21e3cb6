#pragma once

#include <boost/json.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace SampleGitHub {

/// A GraphQL request, told apart as far as the sample needs it: no types, no fragments.
struct GraphQlRequest {
    std::string field;                  ///< The operation's first field, such as "search".
    std::optional<std::int64_t> first;  ///< That field's `first` argument, where it is a number.
    boost::json::object variables;
};

/// Reads a request's body. Throws `PullRequestKit::DecodingError` when it is not what a GraphQL
/// request looks like. Safe from any thread.
GraphQlRequest parseGraphQlRequest(std::string_view body);

/// The first field of a document, empty when there is none. Safe from any thread.
std::string firstField(std::string_view document);

/// A GraphQL answer that tells of an error and has no data.
std::string renderGraphQlError(std::string_view message);

}  // namespace SampleGitHub
