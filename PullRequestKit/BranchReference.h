#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <functional>
#include <string>

namespace PullRequestKit {

struct BranchReference {
    std::string repository;  ///< owner/name
    std::string name;

    bool operator==(const BranchReference&) const = default;
};

template<>
struct Json::Fields<BranchReference> {
    static constexpr std::tuple table{
        field("repository", &BranchReference::repository),
        field("name", &BranchReference::name),
    };
};

}  // namespace PullRequestKit

template<>
struct std::hash<PullRequestKit::BranchReference> : PullRequestKit::RecordHash {};
