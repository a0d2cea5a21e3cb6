#pragma once

#include "PullRequestKit/PullRequestFacts.h"

#include <boost/json/fwd.hpp>
#include <cstdint>
#include <optional>
#include <string_view>

namespace GitHub {

/// Members of an object that may be anything: what is missing or of another kind is not there.
namespace Lenient {

const boost::json::object* object(const boost::json::object& parent, std::string_view key);
const boost::json::array* list(const boost::json::object& parent, std::string_view key);
std::optional<std::string_view> text(const boost::json::object& parent, std::string_view key);
std::optional<bool> flag(const boost::json::object& parent, std::string_view key);

/// A whole number that is not below the least.
std::optional<std::int64_t> number(
    const boost::json::object& parent, std::string_view key, std::int64_t least);

}  // namespace Lenient

/// The facts of a pull request, without the times. Nothing where the head, the decision on reviews
/// or the threads cannot be read: without one of them nobody knows whether it could be merged.
/// Safe from any thread.
std::optional<PullRequestKit::PullRequestFacts> factsOf(const boost::json::object& pullRequest);

/// Safe from any thread.
std::optional<PullRequestKit::Quota> quotaOf(const boost::json::object& rateLimit);

}  // namespace GitHub
