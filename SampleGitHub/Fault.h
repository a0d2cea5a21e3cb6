#pragma once

#include "SampleGitHub/RequestKind.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace SampleGitHub {

/// What can go wrong between GitHub and `gh`.
enum class FaultKind {
    unauthorized,    ///< Status 401.
    rateLimit,       ///< Status 403 with GitHub's text about the rate limit.
    secondaryLimit,  ///< Status 403 with GitHub's text about its secondary rate limit.
    serverError,     ///< Status 500.
    errors,          ///< GraphQL errors beside the data.
    errorsOnly,      ///< GraphQL errors and no data.
    delay,           ///< The answer comes after as many milliseconds as the value says.
    usedUp,          ///< As `rateLimit`, but `rate_limit` says when that ends: in VALUE seconds.
    hangUp,          ///< The connection ends instead of an answer.
    cutOff,          ///< The connection ends after half of the body that the header announced.
    truncated,       ///< Half of the body, announced as the whole.
    noCursor,        ///< A search page that says that there is a next one but not where.
    nullNodes,       ///< Every node of a search page or rules answer, every pull request is null.
    foreignNodes,    ///< Every search hit is an object without members, as an issue would be; facts
                     ///< are those of another repository.
    missingData,     ///< A GraphQL answer that is an empty object.
    emptyBody,
    notJson,
    notUtf8,    ///< A byte that no UTF-8 text has, in the first text of the answer.
    wrongType,  ///< A text in the place of a number, or the reverse.
    deep,       ///< Lists nested 5,000 deep.
    padding,    ///< As many MiB of blanks before the answer as the value says.
};

/// A fault that is switched on.
struct Fault {
    FaultKind kind = FaultKind::serverError;
    std::int64_t value = 0;           ///< For `delay`, `padding` and `used-up`.
    std::optional<RequestKind> only;  ///< The requests it strikes; empty: all.
    std::optional<std::int64_t> nth;  ///< Of those, the one with this number, from 1; empty: all.

    bool operator==(const Fault&) const = default;
};

/// Reads `NAME[=VALUE][@KIND][#NUMBER]`, such as `rate-limit@search#2` or `delay=1500`. Throws
/// `std::invalid_argument` with one English sentence. Safe from any thread.
Fault parseFault(std::string_view text);

/// One line per fault, for a help text: its name and what it does.
std::string describeFaults();

}  // namespace SampleGitHub

template<>
struct PullRequestKit::EnumNames<SampleGitHub::FaultKind> {
    using Kind = SampleGitHub::FaultKind;
    static constexpr auto names = enumNames<Kind>({
        {Kind::unauthorized, "unauthorized"},
        {Kind::rateLimit, "rate-limit"},
        {Kind::secondaryLimit, "secondary-limit"},
        {Kind::serverError, "server-error"},
        {Kind::errors, "errors"},
        {Kind::errorsOnly, "errors-only"},
        {Kind::delay, "delay"},
        {Kind::usedUp, "used-up"},
        {Kind::hangUp, "hang-up"},
        {Kind::cutOff, "cut-off"},
        {Kind::truncated, "truncated"},
        {Kind::noCursor, "no-cursor"},
        {Kind::nullNodes, "null-nodes"},
        {Kind::foreignNodes, "foreign-nodes"},
        {Kind::missingData, "missing-data"},
        {Kind::emptyBody, "empty-body"},
        {Kind::notJson, "not-json"},
        {Kind::notUtf8, "not-utf8"},
        {Kind::wrongType, "wrong-type"},
        {Kind::deep, "deep"},
        {Kind::padding, "padding"},
    });
};
