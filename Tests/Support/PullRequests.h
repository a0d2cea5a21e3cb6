#pragma once

#include "PullRequestKit/PullRequest.h"
#include "Support/Names.h"

#include <string>
#include <string_view>

#include <rapidcheck.h>

namespace TestSupport {

/// The instant of an ISO 8601 text. Requires: a text that `parseDate` reads.
PullRequestKit::Date date(std::string_view text);

/// An open, mergeable pull request of octo/tools without reviews and checks, from the branch
/// "branch-NUMBER" to "main", last updated on 2024-05-01T12:00:00Z. Tests change what they are
/// about.
PullRequest makePullRequest(std::int64_t number);

/// The same, between these two branches.
PullRequest makePullRequest(std::int64_t number, std::string head, std::string base);

/// The record with another value in one of its fields.
template<typename Record, typename Value>
Record with(Record record, Value Record::* field, std::type_identity_t<Value> value)
{
    record.*field = std::move(value);
    return record;
}

}  // namespace TestSupport

namespace rc {

/// Any record at all: every enumeration value, dates of the years 0 to 9999, texts with any
/// characters that UTF-8 can carry.
template<>
struct Arbitrary<PullRequestKit::PullRequest> {
    static Gen<PullRequestKit::PullRequest> arbitrary();
};

}  // namespace rc

namespace TestSupport {

rc::Gen<PullRequestKit::Date> anyDate();
rc::Gen<std::string> anyText();

/// Pull requests of few numbers, branches, dates and states, so that lists of them are full of
/// repeated identities, stacks, circles and ties.
rc::Gen<PullRequestKit::PullRequest> crowdedPullRequest();

}  // namespace TestSupport
