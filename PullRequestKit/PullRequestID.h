#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <functional>
#include <string>

namespace PullRequestKit {

/// Identifies a pull request across hosts and providers.
struct PullRequestID {
    std::string provider;
    std::string host;
    std::string repository;  ///< owner/name
    std::int64_t number = 0;

    /// The four fields joined with "|". Stored: do not rename. The key of all stored data on a pull
    /// request and the last criterion of the ordering.
    std::string storageKey() const
    {
        return provider + "|" + host + "|" + repository + "|" + std::to_string(number);
    }

    bool operator==(const PullRequestID&) const = default;
};

template<>
struct Json::Fields<PullRequestID> {
    static constexpr std::tuple table{
        field("provider", &PullRequestID::provider),
        field("host", &PullRequestID::host),
        field("repository", &PullRequestID::repository),
        field("number", &PullRequestID::number),
    };
};

}  // namespace PullRequestKit

template<>
struct std::hash<PullRequestKit::PullRequestID> : PullRequestKit::RecordHash {};
