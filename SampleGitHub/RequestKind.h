#pragma once

#include "PullRequestKit/EnumNames.h"

namespace SampleGitHub {

enum class RequestKind {
    authentication,  ///< By `gh auth status`: the token's scopes and the user's login.
    search,
    rules,  ///< Nodes by id.
    repositories,
    facts,  ///< Pull requests by repository and number.
    other,
};

}  // namespace SampleGitHub

template<>
struct PullRequestKit::EnumNames<SampleGitHub::RequestKind> {
    static constexpr auto names = enumNames<SampleGitHub::RequestKind>({
        {SampleGitHub::RequestKind::authentication, "authentication"},
        {SampleGitHub::RequestKind::search, "search"},
        {SampleGitHub::RequestKind::rules, "rules"},
        {SampleGitHub::RequestKind::repositories, "repositories"},
        {SampleGitHub::RequestKind::facts, "facts"},
        {SampleGitHub::RequestKind::other, "other"},
    });
};
