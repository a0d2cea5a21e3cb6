#include "GitHubProvider/CheckContext.h"

#include <functional>
#include <unordered_map>

namespace GitHub {
namespace {

using PullRequestKit::Date;

constexpr std::string_view checkRun = "CheckRun";
constexpr std::string_view statusContext = "StatusContext";

enum class Outcome {
    passed,
    failed,
    pending,
};

bool isPassing(std::string_view conclusion)
{
    return conclusion == "SUCCESS" || conclusion == "NEUTRAL" || conclusion == "SKIPPED";
}

/// Every conclusion not known to pass counts as failed, including those that GitHub may add.
Outcome outcome(const CheckContext& context)
{
    if (context.conclusion) {
        return isPassing(*context.conclusion) ? Outcome::passed : Outcome::failed;
    }
    if (context.state == "SUCCESS") {
        return Outcome::passed;
    }
    const bool hasFailed = context.state == "ERROR" || context.state == "FAILURE";
    return hasFailed ? Outcome::failed : Outcome::pending;
}

const CheckContext::WorkflowRun* workflowRun(const CheckContext& context)
{
    if (!context.checkSuite || !context.checkSuite->workflowRun) {
        return nullptr;
    }
    return &*context.checkSuite->workflowRun;
}

std::optional<std::string_view> appID(const CheckContext& context)
{
    if (!context.checkSuite || !context.checkSuite->app) {
        return std::nullopt;
    }
    return context.checkSuite->app->id;
}

std::optional<std::string_view> workflowPath(const CheckContext& context)
{
    const auto* const run = workflowRun(context);
    if (run == nullptr || !run->file) {
        return std::nullopt;
    }
    return run->file->path;
}

std::optional<Date> timestamp(const CheckContext& context)
{
    if (context.startedAt) {
        return context.startedAt;
    }
    return context.completedAt ? context.completedAt : context.createdAt;
}

/// Whether the workflow run decides which entry is newer, and if so, whether `context` is.
std::optional<bool> isNewerByWorkflowRun(const CheckContext& context, const CheckContext& other)
{
    const auto* const run = workflowRun(context);
    const auto* const otherRun = workflowRun(other);
    if (run == nullptr || otherRun == nullptr || !run->databaseId || !otherRun->databaseId) {
        return std::nullopt;
    }
    if (*run->databaseId != *otherRun->databaseId) {
        return *run->databaseId > *otherRun->databaseId;
    }
    if (run->runAttempt != otherRun->runAttempt) {
        return run->runAttempt > otherRun->runAttempt;
    }
    return std::nullopt;
}

const std::optional<std::string>& nameOf(const CheckContext& context)
{
    return context.name ? context.name : context.context;
}

std::vector<std::string_view>& namesOf(CheckSummary& summary, Outcome outcome)
{
    switch (outcome) {
    case Outcome::passed:
        return summary.passed;
    case Outcome::failed:
        return summary.failed;
    case Outcome::pending:
        break;
    }
    return summary.running;
}

}  // namespace

std::optional<CheckContext::Identity> CheckContext::identity() const
{
    if (typeName == checkRun && name) {
        return Identity{checkRun, *name, appID(*this), workflowPath(*this)};
    }
    if (typeName == statusContext && context) {
        return Identity{statusContext, *context, std::nullopt, std::nullopt};
    }
    return std::nullopt;
}

bool CheckContext::isNewer(const CheckContext& other) const
{
    if (databaseId && other.databaseId && *databaseId != *other.databaseId) {
        return *databaseId > *other.databaseId;
    }
    if (const auto isNewerRun = isNewerByWorkflowRun(*this, other)) {
        return *isNewerRun;
    }
    const auto time = timestamp(*this);
    const auto otherTime = timestamp(other);
    return time && otherTime && *time > *otherTime;
}

std::vector<const CheckContext*> effectiveContexts(std::span<const CheckContext> contexts)
{
    std::vector<const CheckContext*> effective;
    std::vector<const CheckContext*> latest;
    std::unordered_map<CheckContext::Identity, std::size_t> positions;
    for (const CheckContext& context : contexts) {
        const auto identity = context.identity();
        if (!identity) {
            effective.push_back(&context);
            continue;
        }
        const auto [entry, isFirst] = positions.try_emplace(*identity, latest.size());
        if (isFirst) {
            latest.push_back(&context);
        } else if (context.isNewer(*latest[entry->second])) {
            latest[entry->second] = &context;
        }
    }
    effective.insert(effective.end(), latest.begin(), latest.end());
    return effective;
}

CheckSummary summarizeChecks(std::span<const CheckContext> contexts)
{
    CheckSummary summary;
    const auto effective = effectiveContexts(contexts);
    summary.passed.reserve(effective.size());
    for (const CheckContext* const context : effective) {
        const Outcome result = outcome(*context);
        summary.count.total += 1;
        summary.count.completed += result == Outcome::passed ? 1 : 0;
        summary.count.failed += result == Outcome::failed ? 1 : 0;
        if (const auto& name = nameOf(*context)) {
            namesOf(summary, result).push_back(*name);
        }
    }
    return summary;
}

}  // namespace GitHub

std::size_t std::hash<GitHub::CheckContext::Identity>::operator()(
    const GitHub::CheckContext::Identity& identity) const
{
    constexpr std::size_t factor = 31;
    std::size_t seed = std::hash<std::string_view>{}(identity.kind);
    seed = seed * factor + std::hash<std::string_view>{}(identity.name);
    seed = seed * factor + std::hash<std::optional<std::string_view>>{}(identity.appID);
    return seed * factor + std::hash<std::optional<std::string_view>>{}(identity.workflowPath);
}
