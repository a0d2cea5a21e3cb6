#pragma once

#include "PullRequestKit/Json/Fields.h"
#include "PullRequestKit/PullRequestState.h"

#include <boost/json/fwd.hpp>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The contents of the sample GitHub as described in scenario files. Fields that the field tables
/// call defaulted are optional. Ages are relative to the server's "now"; each is stored as text
/// (see `parseAge`) and in seconds.
namespace SampleGitHub {

struct Account {
    std::string login;
    std::vector<std::string> teams;  ///< The teams whose review requests concern the user.

    bool operator==(const Account&) const = default;
};

/// How many approvals a branch requires.
struct BranchRules {
    std::string name;
    std::optional<std::int64_t> protection;  ///< By classic branch protection.
    std::vector<std::int64_t> rulesets;      ///< By each ruleset.

    bool operator==(const BranchRules&) const = default;
};

struct Repository {
    std::string fullName;
    std::vector<std::string> formerNames;  ///< Full names before renames.
    std::string description;
    std::string visibility = "public";
    std::optional<std::string> language;
    std::string defaultBranch = "main";
    bool isArchived = false;
    std::string affiliation = "organization_member";  ///< Or "owner" or "collaborator".
    std::vector<BranchRules> branches;                ///< Branches with rules.

    bool operator==(const Repository&) const = default;
};

/// The latest review of one reviewer.
struct Review {
    std::string state;                  ///< In GitHub's terms, such as "APPROVED".
    std::optional<std::string> author;  ///< Empty for a deleted account.
    std::string commit = "head";        ///< The reviewed commit: "head", "older" or "gone".
    std::string age = "1d";
    std::chrono::seconds ageInSeconds{0};

    bool operator==(const Review&) const = default;
};

/// A check of the last commit: a check run if it has a name, a commit status if it has a context.
struct Check {
    std::optional<std::string> name;
    std::optional<std::string> context;
    std::string state;  ///< A run's conclusion (empty while running) or a status's state.
    std::string app = "actions";
    std::string workflow;         ///< File name in .github/workflows; empty for other apps.
    std::int64_t run = 0;         ///< The workflow run's number.
    std::int64_t attempt = 1;     ///< The run's attempt.
    std::int64_t databaseId = 0;  ///< 0: made up.
    std::string age = "1h";
    std::chrono::seconds ageInSeconds{0};

    bool operator==(const Check&) const = default;
};

/// A position in one of GitHub's own stacks.
struct StackPlace {
    std::int64_t number = 1;  ///< Of the stack.
    std::int64_t position = 1;
    std::int64_t size = 1;

    bool operator==(const StackPlace&) const = default;
};

struct PullRequest {
    std::string repository;
    std::int64_t number = 0;
    std::string title;
    std::optional<std::string> author;  ///< Empty for a deleted account.
    std::string created;
    std::string updated;
    std::chrono::seconds createdAge{0};
    std::chrono::seconds updatedAge{0};
    PullRequestKit::PullRequestState state = PullRequestKit::PullRequestState::open;
    bool isDraft = false;
    PullRequestKit::PullRequestMergeability mergeability =
        PullRequestKit::PullRequestMergeability::mergeable;
    std::string head;
    std::string base = "main";
    std::optional<std::string> fork;  ///< The head's repository, if another one.
    bool isForkDeleted = false;
    bool isBaseDeleted = false;  ///< The base branch was deleted.
    std::vector<std::string> requestedUsers;
    std::vector<std::string> requestedTeams;
    std::vector<Review> reviews;
    std::vector<Check> checks;
    std::optional<std::string> headCommit;           ///< Empty: made up.
    std::optional<std::string> reviewDecision;       ///< Empty: derived from rules and reviews.
    std::optional<std::int64_t> mergeQueuePosition;  ///< Empty: not in the merge queue.
    bool isAutoMerge = false;
    std::int64_t threads = 0;
    std::int64_t openThreads = 0;
    std::optional<StackPlace> stack;

    bool operator==(const PullRequest&) const = default;
};

/// The numbers of generated records, in addition to the listed ones.
struct Generated {
    std::int64_t repositories = 0;
    std::int64_t pullRequests = 0;
    std::int64_t busyRepositories =
        1;                    ///< Pull requests are distributed over this many repositories.
    std::int64_t checks = 0;  ///< Per pull request.

    bool operator==(const Generated&) const = default;
};

struct Scenario {
    std::optional<Account> account;      ///< Empty: nobody is signed in.
    std::vector<Account> otherAccounts;  ///< Others that can be signed in.
    std::vector<Repository> repositories;
    std::vector<PullRequest> pullRequests;
    Generated generated;

    bool operator==(const Scenario&) const = default;
};

/// Parses a scenario file and generates what it asks for. Throws `PullRequestKit::DecodingError`.
Scenario parseScenario(std::string_view text);

/// Signs in one of the scenario's accounts. Throws `std::runtime_error` with one English sentence.
void signIn(Scenario& scenario, const std::string& login);

/// A text with a slash or a dot is a path, any other the name of a file in the scenario folder.
std::filesystem::path scenarioFile(const std::string& nameOrFile);

/// Loads a scenario by its name ("everyday", "involved", "large", "signed-out", "empty") or path.
/// Throws `std::runtime_error` with one English sentence.
Scenario loadScenario(const std::string& nameOrFile);

}  // namespace SampleGitHub

namespace PullRequestKit::Json {

template<>
struct Fields<SampleGitHub::Account> {
    static constexpr std::tuple table{
        field("login", &SampleGitHub::Account::login),
        defaultedField("teams", &SampleGitHub::Account::teams),
    };
};

template<>
struct Fields<SampleGitHub::BranchRules> {
    static constexpr std::tuple table{
        field("name", &SampleGitHub::BranchRules::name),
        field("protection", &SampleGitHub::BranchRules::protection),
        defaultedField("rulesets", &SampleGitHub::BranchRules::rulesets),
    };
};

template<>
struct Fields<SampleGitHub::Repository> {
    static constexpr std::tuple table{
        field("fullName", &SampleGitHub::Repository::fullName),
        defaultedField("formerNames", &SampleGitHub::Repository::formerNames),
        defaultedField("description", &SampleGitHub::Repository::description),
        defaultedField("visibility", &SampleGitHub::Repository::visibility),
        field("language", &SampleGitHub::Repository::language),
        defaultedField("defaultBranch", &SampleGitHub::Repository::defaultBranch),
        defaultedField("isArchived", &SampleGitHub::Repository::isArchived),
        defaultedField("affiliation", &SampleGitHub::Repository::affiliation),
        defaultedField("branches", &SampleGitHub::Repository::branches),
    };
    static void finish(
        SampleGitHub::Repository& repository, const boost::json::object& object, const Path& path);
};

template<>
struct Fields<SampleGitHub::Review> {
    static constexpr std::tuple table{
        field("state", &SampleGitHub::Review::state),
        field("author", &SampleGitHub::Review::author),
        defaultedField("commit", &SampleGitHub::Review::commit),
        defaultedField("age", &SampleGitHub::Review::age),
    };
    static void finish(
        SampleGitHub::Review& review, const boost::json::object& object, const Path& path);
};

template<>
struct Fields<SampleGitHub::StackPlace> {
    static constexpr std::tuple table{
        field("number", &SampleGitHub::StackPlace::number),
        field("position", &SampleGitHub::StackPlace::position),
        field("size", &SampleGitHub::StackPlace::size),
    };
};

template<>
struct Fields<SampleGitHub::Check> {
    static constexpr std::tuple table{
        field("name", &SampleGitHub::Check::name),
        field("context", &SampleGitHub::Check::context),
        defaultedField("state", &SampleGitHub::Check::state),
        defaultedField("app", &SampleGitHub::Check::app),
        defaultedField("workflow", &SampleGitHub::Check::workflow),
        defaultedField("run", &SampleGitHub::Check::run),
        defaultedField("attempt", &SampleGitHub::Check::attempt),
        defaultedField("databaseId", &SampleGitHub::Check::databaseId),
        defaultedField("age", &SampleGitHub::Check::age),
    };
    static void finish(
        SampleGitHub::Check& check, const boost::json::object& object, const Path& path);
};

template<>
struct Fields<SampleGitHub::PullRequest> {
    static constexpr std::tuple table{
        field("repository", &SampleGitHub::PullRequest::repository),
        field("number", &SampleGitHub::PullRequest::number),
        field("title", &SampleGitHub::PullRequest::title),
        field("author", &SampleGitHub::PullRequest::author),
        field("created", &SampleGitHub::PullRequest::created),
        field("updated", &SampleGitHub::PullRequest::updated),
        defaultedField("state", &SampleGitHub::PullRequest::state),
        defaultedField("isDraft", &SampleGitHub::PullRequest::isDraft),
        defaultedField("mergeability", &SampleGitHub::PullRequest::mergeability),
        field("head", &SampleGitHub::PullRequest::head),
        defaultedField("base", &SampleGitHub::PullRequest::base),
        field("fork", &SampleGitHub::PullRequest::fork),
        defaultedField("isForkDeleted", &SampleGitHub::PullRequest::isForkDeleted),
        defaultedField("isBaseDeleted", &SampleGitHub::PullRequest::isBaseDeleted),
        defaultedField("requestedUsers", &SampleGitHub::PullRequest::requestedUsers),
        defaultedField("requestedTeams", &SampleGitHub::PullRequest::requestedTeams),
        defaultedField("reviews", &SampleGitHub::PullRequest::reviews),
        defaultedField("checks", &SampleGitHub::PullRequest::checks),
        field("headCommit", &SampleGitHub::PullRequest::headCommit),
        field("reviewDecision", &SampleGitHub::PullRequest::reviewDecision),
        field("mergeQueuePosition", &SampleGitHub::PullRequest::mergeQueuePosition),
        defaultedField("isAutoMerge", &SampleGitHub::PullRequest::isAutoMerge),
        defaultedField("threads", &SampleGitHub::PullRequest::threads),
        defaultedField("openThreads", &SampleGitHub::PullRequest::openThreads),
        field("stack", &SampleGitHub::PullRequest::stack),
    };
    static void finish(
        SampleGitHub::PullRequest& pullRequest,
        const boost::json::object& object,
        const Path& path);
};

template<>
struct Fields<SampleGitHub::Generated> {
    static constexpr std::tuple table{
        defaultedField("repositories", &SampleGitHub::Generated::repositories),
        defaultedField("pullRequests", &SampleGitHub::Generated::pullRequests),
        defaultedField("busyRepositories", &SampleGitHub::Generated::busyRepositories),
        defaultedField("checks", &SampleGitHub::Generated::checks),
    };
};

template<>
struct Fields<SampleGitHub::Scenario> {
    static constexpr std::tuple table{
        field("account", &SampleGitHub::Scenario::account),
        defaultedField("otherAccounts", &SampleGitHub::Scenario::otherAccounts),
        defaultedField("repositories", &SampleGitHub::Scenario::repositories),
        defaultedField("pullRequests", &SampleGitHub::Scenario::pullRequests),
        defaultedField("generated", &SampleGitHub::Scenario::generated),
    };
    static void finish(
        SampleGitHub::Scenario& scenario, const boost::json::object& object, const Path& path);
};

}  // namespace PullRequestKit::Json
