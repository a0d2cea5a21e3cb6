#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <functional>
#include <string>

namespace PullRequestKit {

struct ProgressCount {
    std::int64_t completed = 0;
    std::int64_t total = 0;
    std::int64_t failed = 0;

    bool allComplete() const { return total > 0 && completed == total; }

    /// "completed/total".
    std::string label() const { return std::to_string(completed) + "/" + std::to_string(total); }

    bool operator==(const ProgressCount&) const = default;
};

template<>
struct Json::Fields<ProgressCount> {
    static constexpr std::tuple table{
        field("completed", &ProgressCount::completed),
        field("total", &ProgressCount::total),
        defaultedField("failed", &ProgressCount::failed),
    };
};

}  // namespace PullRequestKit

template<>
struct std::hash<PullRequestKit::ProgressCount> : PullRequestKit::RecordHash {};
