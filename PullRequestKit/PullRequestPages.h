#pragma once

#include "PullRequestKit/PullRequest.h"

namespace PullRequestKit {

/// Further web pages of a pull request. Safe from any thread.
inline Url filesPage(const PullRequest& pullRequest)
{
    return {pullRequest.url.text + "/files"};
}

inline Url checksPage(const PullRequest& pullRequest)
{
    return {pullRequest.url.text + "/checks"};
}

}  // namespace PullRequestKit
