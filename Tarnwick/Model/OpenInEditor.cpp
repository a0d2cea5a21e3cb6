#include "Tarnwick/Model/OpenInEditor.h"

#include "GitHubProvider/Text.h"
#include "PullRequestKit/Errors.h"
#include "Tarnwick/Async/Worker.h"

#include <array>
#include <system_error>
#include <utility>

#include <pwd.h>

namespace Tarnwick {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view whatToDo = "Open Menu > Repositories and set Project Directory first.";

/// The home folder of this user or of the named one; nothing for an unknown name.
std::optional<std::string> homeOf(const std::string& name)
{
    const QByteArray home = qgetenv("HOME");
    if (name.empty() && !home.isEmpty()) {
        return home.toStdString();
    }
    constexpr std::size_t enough = 16'384;
    std::array<char, enough> texts{};
    passwd entry{};
    passwd* found = nullptr;
    if (name.empty()) {
        getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found);
    } else {
        getpwnam_r(name.c_str(), &entry, texts.data(), texts.size(), &found);
    }
    return found != nullptr ? std::optional<std::string>(found->pw_dir) : std::nullopt;
}

std::string withHome(const std::string& path)
{
    if (!path.starts_with('~')) {
        return path;
    }
    const std::size_t end = std::min(path.find('/'), path.size());
    const auto home = homeOf(path.substr(1, end - 1));
    return home ? *home + path.substr(end) : path;
}

fs::path withoutSlashAtEnd(const fs::path& path)
{
    return path.has_filename() || path == path.root_path() ? path : path.parent_path();
}

/// The name is untrusted: a path outside of the folder is not a clone.
bool isClone(const fs::path& clone)
{
    std::error_code error;
    return clone.filename() != "." && clone.filename() != ".." && fs::is_directory(clone, error);
}

}  // namespace

fs::path projectFolder(const std::string& setting)
{
    const std::string text = GitHub::trimText(setting);
    std::error_code error;
    return text.empty() ? fs::path() : withoutSlashAtEnd(fs::absolute(withHome(text), error));
}

bool asksForProjectDirectory(std::string_view problem)
{
    return problem.ends_with(whatToDo);
}

QCoro::Task<std::optional<std::string>> openInEditor(
    std::shared_ptr<const ExternalNavigation> navigation,
    std::string projectDirectory,
    PullRequestKit::PullRequest pullRequest,
    ProgressSink progress,
    std::stop_token stopToken)
{
    const fs::path folder = projectFolder(projectDirectory);
    if (folder.empty()) {
        co_return std::string(whatToDo);
    }
    const fs::path clone = folder / pullRequest.repositoryName();
    auto looking = onWorker([clone] { return isClone(clone); });
    const bool isThere = co_await looking;
    if (stopToken.stop_requested()) {
        co_return std::nullopt;
    }
    if (!isThere) {
        co_return "The repository directory does not exist at " + clone.string() + ". "
            + std::string(whatToDo);
    }
    std::optional<std::string> problem;
    try {
        auto opening = navigation->openInCode(
            clone, pullRequest.head.name, std::move(progress), std::move(stopToken));
        co_await opening;
    } catch (const PullRequestKit::CancellationError&) {
        problem.reset();
    } catch (const std::exception& error) {
        problem = error.what();
    }
    co_return problem;
}

}  // namespace Tarnwick
