#pragma once

#include "SampleGitHub/RequestKind.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace SampleGitHub {

/// Failures between GitHub and `gh`; see `describeFaults`.
enum class FaultKind {
    unauthorized,
    rateLimit,
    secondaryLimit,
    serverError,
    errors,
    errorsOnly,
    delay,
    usedUp,
    hangUp,
    cutOff,
    truncated,
    noCursor,
    nullNodes,
    foreignNodes,
    missingData,
    emptyBody,
    notJson,
    notUtf8,
    wrongType,
    deep,
    padding,
};

struct Fault {
    FaultKind kind = FaultKind::serverError;
    std::int64_t value = 0;           ///< For `delay`, `padding` and `used-up`.
    std::optional<RequestKind> only;  ///< The affected requests; empty: all.
    std::optional<std::int64_t> nth;  ///< The affected one of these, from 1; empty: all.

    bool operator==(const Fault&) const = default;
};

/// Parses `NAME[=VALUE][@KIND][#NUMBER]`, such as `rate-limit@search#2` or `delay=1500`. Throws
/// `std::invalid_argument` with one English sentence. Safe from any thread.
Fault parseFault(std::string_view text);

/// A help text with one line per fault.
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
