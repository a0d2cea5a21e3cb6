#pragma once

#include "PullRequestKit/Json/Fields.h"
#include "PullRequestKit/ProgressCount.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace GitHub {

/// One entry in the list of checks of a commit: a check run or a commit status, whichever
/// `typeName` says. Each fills the fields of its kind.
struct CheckContext {
    struct App {
        std::optional<std::string> id;

        bool operator==(const App&) const = default;
    };

    struct WorkflowFile {
        std::optional<std::string> path;

        bool operator==(const WorkflowFile&) const = default;
    };

    struct WorkflowRun {
        std::optional<std::int64_t> databaseId;
        std::int64_t runAttempt = 0;
        std::optional<WorkflowFile> file;

        bool operator==(const WorkflowRun&) const = default;
    };

    struct CheckSuite {
        std::optional<App> app;
        std::optional<WorkflowRun> workflowRun;

        bool operator==(const CheckSuite&) const = default;
    };

    /// What makes two entries the same check. It points into the context it was made from.
    struct Identity {
        std::string_view kind;
        std::string_view name;
        std::optional<std::string_view> appID;
        std::optional<std::string_view> workflowPath;

        bool operator==(const Identity&) const = default;
    };

    std::optional<std::string> typeName;  ///< "CheckRun" or "StatusContext".
    std::optional<std::string> name;
    std::optional<std::string> context;
    std::optional<std::string> status;
    std::optional<std::string> conclusion;  ///< Absent while a check run has not ended.
    std::optional<std::string> state;
    std::optional<std::int64_t> databaseId;
    std::optional<PullRequestKit::Date> startedAt;
    std::optional<PullRequestKit::Date> completedAt;
    std::optional<PullRequestKit::Date> createdAt;
    std::optional<CheckSuite> checkSuite;

    /// Nothing when the type is unknown or the name is missing.
    std::optional<Identity> identity() const;

    /// Whether this entry supersedes `other`, one of the same identity. Not on a full tie.
    bool isNewer(const CheckContext& other) const;

    bool operator==(const CheckContext&) const = default;
};

/// Of every check only the latest entry: running a workflow again leaves the older ones in the
/// list. Entries without an identity are all kept and come first. The pointers are into `contexts`.
/// Safe from any thread.
std::vector<const CheckContext*> effectiveContexts(std::span<const CheckContext> contexts);

/// The effective checks: how many passed and failed, the others still pending, and their names,
/// which lie in the contexts. One without a name is counted only.
struct CheckSummary {
    PullRequestKit::ProgressCount count;
    std::vector<std::string_view> passed;
    std::vector<std::string_view> failed;
    std::vector<std::string_view> running;
};

/// Safe from any thread.
CheckSummary summarizeChecks(std::span<const CheckContext> contexts);

}  // namespace GitHub

template<>
struct std::hash<GitHub::CheckContext::Identity> {
    std::size_t operator()(const GitHub::CheckContext::Identity& identity) const;
};

namespace PullRequestKit::Json {

template<>
struct Fields<GitHub::CheckContext::App> {
    static constexpr std::tuple table{
        field("id", &GitHub::CheckContext::App::id),
    };
};

template<>
struct Fields<GitHub::CheckContext::WorkflowFile> {
    static constexpr std::tuple table{
        field("path", &GitHub::CheckContext::WorkflowFile::path),
    };
};

template<>
struct Fields<GitHub::CheckContext::WorkflowRun> {
    static constexpr std::tuple table{
        field("databaseId", &GitHub::CheckContext::WorkflowRun::databaseId),
        field("runAttempt", &GitHub::CheckContext::WorkflowRun::runAttempt),
        field("file", &GitHub::CheckContext::WorkflowRun::file),
    };
};

template<>
struct Fields<GitHub::CheckContext::CheckSuite> {
    static constexpr std::tuple table{
        field("app", &GitHub::CheckContext::CheckSuite::app),
        field("workflowRun", &GitHub::CheckContext::CheckSuite::workflowRun),
    };
};

/// In the order in which the search asks for the fields of a check run, then those of a status.
template<>
struct Fields<GitHub::CheckContext> {
    static constexpr std::tuple table{
        field("__typename", &GitHub::CheckContext::typeName),
        field("name", &GitHub::CheckContext::name),
        field("status", &GitHub::CheckContext::status),
        field("conclusion", &GitHub::CheckContext::conclusion),
        field("databaseId", &GitHub::CheckContext::databaseId),
        field("startedAt", &GitHub::CheckContext::startedAt),
        field("completedAt", &GitHub::CheckContext::completedAt),
        field("checkSuite", &GitHub::CheckContext::checkSuite),
        field("context", &GitHub::CheckContext::context),
        field("state", &GitHub::CheckContext::state),
        field("createdAt", &GitHub::CheckContext::createdAt),
    };
};

}  // namespace PullRequestKit::Json
