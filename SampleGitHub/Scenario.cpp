#include "SampleGitHub/Scenario.h"

#include "PullRequestKit/Json/Reading.h"
#include "SampleGitHub/Age.h"
#include "SampleGitHub/Generation.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <unordered_set>

namespace PullRequestKit::Json {
namespace {

std::chrono::seconds readAge(const std::string& text, const Path& path)
{
    const auto age = SampleGitHub::parseAge(text);
    if (!age) {
        throwDecodingError(path, "is not an age such as 2d4h");
    }
    return *age;
}

bool isFullName(std::string_view name)
{
    const std::size_t slash = name.find('/');
    return slash != std::string_view::npos && slash > 0 && slash + 1 < name.size()
           && name.find('/', slash + 1) == std::string_view::npos
           && name.find_first_of(" \"\\\n\t") == std::string_view::npos;
}

}  // namespace

void Fields<SampleGitHub::Repository>::finish(
    SampleGitHub::Repository& repository, const boost::json::object& /*object*/, const Path& path)
{
    if (!isFullName(repository.fullName)) {
        throwDecodingError(path.member("fullName"), "is not an owner, a slash and a name");
    }
}

void Fields<SampleGitHub::Review>::finish(
    SampleGitHub::Review& review, const boost::json::object& /*object*/, const Path& path)
{
    if (review.commit != "head" && review.commit != "older" && review.commit != "gone") {
        throwDecodingError(path.member("commit"), "is not one of head, older and gone");
    }
    review.ageInSeconds = readAge(review.age, path.member("age"));
}

void Fields<SampleGitHub::Check>::finish(
    SampleGitHub::Check& check, const boost::json::object& /*object*/, const Path& path)
{
    if (check.name.has_value() == check.context.has_value()) {
        throwDecodingError(path, "needs either a name or a context");
    }
    check.ageInSeconds = readAge(check.age, path.member("age"));
}

void Fields<SampleGitHub::PullRequest>::finish(
    SampleGitHub::PullRequest& pullRequest, const boost::json::object& /*object*/, const Path& path)
{
    pullRequest.createdAge = readAge(pullRequest.created, path.member("created"));
    pullRequest.updatedAge = readAge(pullRequest.updated, path.member("updated"));
    if (pullRequest.updatedAge > pullRequest.createdAge) {
        throwDecodingError(path.member("updated"), "is before the creation");
    }
    if (pullRequest.openThreads > pullRequest.threads) {
        throwDecodingError(path.member("openThreads"), "exceeds the number of threads");
    }
}

void Fields<SampleGitHub::Scenario>::finish(
    SampleGitHub::Scenario& scenario, const boost::json::object& /*object*/, const Path& path)
{
    SampleGitHub::generate(scenario);
    std::unordered_set<std::string_view> names;
    for (const SampleGitHub::Repository& repository : scenario.repositories) {
        names.insert(repository.fullName);
    }
    const Path list = path.member("pullRequests");
    for (std::size_t index = 0; index < scenario.pullRequests.size(); ++index) {
        if (!names.contains(scenario.pullRequests[index].repository)) {
            const Path element = list.element(index);
            throwDecodingError(element.member("repository"), "is not one of the repositories");
        }
    }
}

}  // namespace PullRequestKit::Json

namespace SampleGitHub {

std::filesystem::path scenarioFile(const std::string& nameOrFile)
{
    if (nameOrFile.find_first_of("./") != std::string::npos) {
        return nameOrFile;
    }
    return std::filesystem::path(SAMPLE_GITHUB_SCENARIOS) / (nameOrFile + ".json");
}

void signIn(Scenario& scenario, const std::string& login)
{
    if (scenario.account && scenario.account->login == login) {
        return;
    }
    const auto found = std::ranges::find(scenario.otherAccounts, login, &Account::login);
    if (found == scenario.otherAccounts.end()) {
        throw std::runtime_error("The scenario has no account " + login + ".");
    }
    scenario.account = *found;
}

Scenario parseScenario(std::string_view text)
{
    return PullRequestKit::Json::decode<Scenario>(text);
}

Scenario loadScenario(const std::string& nameOrFile)
{
    const std::filesystem::path file = scenarioFile(nameOrFile);
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad()) {
        throw std::runtime_error("The scenario " + nameOrFile + " could not be read.");
    }
    try {
        return parseScenario(text);
    } catch (const PullRequestKit::DecodingError& error) {
        throw std::runtime_error("The scenario " + nameOrFile + ": " + error.what());
    }
}

}  // namespace SampleGitHub
