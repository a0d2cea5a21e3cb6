#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <functional>
#include <string>

namespace PullRequestKit {

/// Which pull request: its number in a repository of one host, as one provider sees it.
struct PullRequestID {
    std::string provider;
    std::string host;
    std::string repository;  ///< owner/name
    std::int64_t number = 0;

    /// The four fields joined with "|". Stored: do not rename. It is the key of everything that is
    /// kept per pull request and the last tie-break of the ordering.
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
