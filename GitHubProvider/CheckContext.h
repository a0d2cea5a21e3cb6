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

/// A check of a commit: a check run or a commit status, which differ in their fields.
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

    /// Identifies a check. Points into its context.
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
    std::optional<std::string> conclusion;  ///< Absent until a check run has completed.
    std::optional<std::string> state;
    std::optional<std::int64_t> databaseId;
    std::optional<PullRequestKit::Date> startedAt;
    std::optional<PullRequestKit::Date> completedAt;
    std::optional<PullRequestKit::Date> createdAt;
    std::optional<CheckSuite> checkSuite;

    /// Nothing when the type is unknown or the name is missing.
    std::optional<Identity> identity() const;

    /// Whether this entry supersedes `other` of the same identity. False on a tie.
    bool isNewer(const CheckContext& other) const;

    bool operator==(const CheckContext&) const = default;
};

/// The latest entry of every check: after a rerun the list still has older ones. Entries without an
/// identity come first. The result points into `contexts`. Safe from any thread.
std::vector<const CheckContext*> effectiveContexts(std::span<const CheckContext> contexts);

/// The number of checks that passed and failed, and their names, which point into the contexts. The
/// rest is pending. A check without a name is only counted.
struct CheckSummary {
    PullRequestKit::ProgressCount count;
    std::vector<std::string_view> passed;
    std::vector<std::string_view> failed;
    std::vector<std::string_view> running;
};

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

/// In the order of the search document: first the fields of a check run, then those of a status.
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
