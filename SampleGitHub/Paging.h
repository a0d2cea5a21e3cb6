#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// How GitHub cuts lists into pages. Safe from any thread.
namespace SampleGitHub {

/// The search cursor behind so many results.
std::string cursorBehind(std::int64_t count);

/// How many results lie before a cursor; nothing for a text that is none.
std::optional<std::int64_t> resultsBefore(std::string_view cursor);

/// The parameters of an address' query as they stand there. Of one name the last value counts.
std::map<std::string, std::string> queryParameters(std::string_view query);

/// A positive number among the parameters, or `fallback`.
std::int64_t positiveParameter(
    const std::map<std::string, std::string>& parameters,
    const std::string& name,
    std::int64_t fallback);

/// The value of a Link header for page `page` of `pageCount`, with the other parameters kept; empty
/// when there is only one page. `address` is what stands before the question mark.
std::string linkHeader(
    std::string_view address,
    std::map<std::string, std::string> parameters,
    std::int64_t page,
    std::int64_t pageCount);

}  // namespace SampleGitHub
