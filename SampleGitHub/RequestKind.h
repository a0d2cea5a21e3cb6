#pragma once

#include "PullRequestKit/EnumNames.h"

namespace SampleGitHub {

/// What a request is about.
enum class RequestKind {
    authentication,  ///< What `gh auth status` asks: the token's scopes and the user's login.
    search,
    rules,  ///< Nodes by their ids.
    repositories,
    facts,  ///< Pull requests by their repositories and numbers.
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
