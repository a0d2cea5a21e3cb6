#pragma once

#include "PullRequestKit/PullRequestFacts.h"

#include <boost/json/fwd.hpp>
#include <cstdint>
#include <optional>
#include <string_view>

namespace GitHub {

/// Reads members leniently: a missing value or one of the wrong type is absent.
namespace Lenient {

const boost::json::object* object(const boost::json::object& parent, std::string_view key);
const boost::json::array* list(const boost::json::object& parent, std::string_view key);
std::optional<std::string_view> text(const boost::json::object& parent, std::string_view key);
std::optional<bool> flag(const boost::json::object& parent, std::string_view key);

/// An integer of at least `least`.
std::optional<std::int64_t> number(
    const boost::json::object& parent, std::string_view key, std::int64_t least);

}  // namespace Lenient

/// The facts of a pull request without the times. Nothing when the head, the review decision or the
/// threads cannot be read: mergeability depends on all of them. Safe from any thread.
std::optional<PullRequestKit::PullRequestFacts> factsOf(const boost::json::object& pullRequest);
std::optional<PullRequestKit::Quota> quotaOf(const boost::json::object& rateLimit);

}  // namespace GitHub
