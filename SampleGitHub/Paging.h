#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// GitHub's pagination. Safe from any thread.
namespace SampleGitHub {

/// The search cursor after this many results.
std::string cursorBehind(std::int64_t count);

/// The number of results before a cursor; nothing for an invalid one.
std::optional<std::int64_t> resultsBefore(std::string_view cursor);

/// The undecoded parameters of a URL's query. Of duplicates the last value counts.
std::map<std::string, std::string> queryParameters(std::string_view query);

/// A positive number among the parameters, or `fallback`.
std::int64_t positiveParameter(
    const std::map<std::string, std::string>& parameters,
    const std::string& name,
    std::int64_t fallback);

/// The Link header of page `page` of `pageCount` with the other parameters kept; empty for a single
/// page. `address` is the URL without its query.
std::string linkHeader(
    std::string_view address,
    std::map<std::string, std::string> parameters,
    std::int64_t page,
    std::int64_t pageCount);

}  // namespace SampleGitHub
