#pragma once

#include "PullRequestKit/EnumNames.h"
#include "PullRequestKit/ReviewerScope.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

/// The user's filters and arrangements. The name of each case is both its menu label and its stored
/// text; the cases are in the menu's order.
namespace Tarnwick {

enum class StatusFilter {
    open,
    draft,
};

enum class ChecksFilter {
    none,
    pending,
    pass,
    fail,
};

enum class ReviewFilter {
    approved,
    changesRequested,
    commented,
    none,
};

enum class MergeabilityFilter {
    mergeable,
    conflicting,
    unknown,
};

/// Which pull requests are fetched: review requests to the user, all, or all that involve the user.
enum class ReviewerFilter {
    myself,
    any,
    involved,
};

enum class Arrangement {
    byReviewState,
    byWhoseTurn,
};

/// The time between two refreshes, stored as seconds: do not renumber.
enum class PollingInterval : std::int64_t {
    oneMinute = 60,
    fiveMinutes = 300,
    thirtyMinutes = 1800,
    oneHour = 3600,
};

/// The menu labels, in the menu's order.
inline constexpr std::array<std::pair<PollingInterval, std::string_view>, 4> pollingIntervals{{
    {PollingInterval::oneMinute, "1 minute"},
    {PollingInterval::fiveMinutes, "5 minutes"},
    {PollingInterval::thirtyMinutes, "30 minutes"},
    {PollingInterval::oneHour, "1 hour"},
}};

constexpr std::chrono::seconds secondsOf(PollingInterval interval)
{
    return std::chrono::seconds{static_cast<std::int64_t>(interval)};
}

/// The interval of exactly this length, or nothing.
constexpr std::optional<PollingInterval> pollingIntervalOf(std::chrono::seconds length)
{
    for (const auto& [interval, label] : pollingIntervals) {
        if (secondsOf(interval) == length) {
            return interval;
        }
    }
    return std::nullopt;
}

constexpr PullRequestKit::ReviewerScope reviewerScopeOf(ReviewerFilter filter)
{
    switch (filter) {
    case ReviewerFilter::myself:
        return PullRequestKit::ReviewerScope::myself;
    case ReviewerFilter::any:
        return PullRequestKit::ReviewerScope::any;
    case ReviewerFilter::involved:
        return PullRequestKit::ReviewerScope::involved;
    }
    return PullRequestKit::ReviewerScope::myself;
}

}  // namespace Tarnwick

namespace PullRequestKit {

// Stored: do not rename.
template<>
struct EnumNames<Tarnwick::StatusFilter> {
    static constexpr auto names = enumNames<Tarnwick::StatusFilter>({
        {Tarnwick::StatusFilter::open, "Open"},
        {Tarnwick::StatusFilter::draft, "Draft"},
    });
};

// Stored: do not rename.
template<>
struct EnumNames<Tarnwick::ChecksFilter> {
    static constexpr auto names = enumNames<Tarnwick::ChecksFilter>({
        {Tarnwick::ChecksFilter::none, "None"},
        {Tarnwick::ChecksFilter::pending, "Pending"},
        {Tarnwick::ChecksFilter::pass, "Pass"},
        {Tarnwick::ChecksFilter::fail, "Fail"},
    });
};

// Stored: do not rename.
template<>
struct EnumNames<Tarnwick::ReviewFilter> {
    static constexpr auto names = enumNames<Tarnwick::ReviewFilter>({
        {Tarnwick::ReviewFilter::approved, "Approved"},
        {Tarnwick::ReviewFilter::changesRequested, "Changes Requested"},
        {Tarnwick::ReviewFilter::commented, "Commented"},
        {Tarnwick::ReviewFilter::none, "None"},
    });
};

// Stored: do not rename.
template<>
struct EnumNames<Tarnwick::MergeabilityFilter> {
    static constexpr auto names = enumNames<Tarnwick::MergeabilityFilter>({
        {Tarnwick::MergeabilityFilter::mergeable, "Mergeable"},
        {Tarnwick::MergeabilityFilter::conflicting, "Conflicting"},
        {Tarnwick::MergeabilityFilter::unknown, "Unknown"},
    });
};

// Stored: do not rename.
template<>
struct EnumNames<Tarnwick::ReviewerFilter> {
    static constexpr auto names = enumNames<Tarnwick::ReviewerFilter>({
        {Tarnwick::ReviewerFilter::myself, "Myself"},
        {Tarnwick::ReviewerFilter::any, "Any"},
        {Tarnwick::ReviewerFilter::involved, "Involved"},
    });
};

// Stored: do not rename.
template<>
struct EnumNames<Tarnwick::Arrangement> {
    static constexpr auto names = enumNames<Tarnwick::Arrangement>({
        {Tarnwick::Arrangement::byReviewState, "By Review State"},
        {Tarnwick::Arrangement::byWhoseTurn, "By Whose Turn"},
    });
};

}  // namespace PullRequestKit
