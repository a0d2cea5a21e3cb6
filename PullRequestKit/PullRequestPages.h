#pragma once

#include "PullRequestKit/PullRequest.h"

namespace PullRequestKit {

/// The pages beside a pull request's own one. Safe from any thread.
inline Url filesPage(const PullRequest& pullRequest)
{
    return {pullRequest.url.text + "/files"};
}

inline Url checksPage(const PullRequest& pullRequest)
{
    return {pullRequest.url.text + "/checks"};
}

}  // namespace PullRequestKit
