#include "Fakes/RecordingSurroundings.h"

#include <stdexcept>
#include <utility>

namespace TestSupport {

using namespace Tarnwick;
using GitHub::CommandResult;

namespace {

std::string line(
    const std::string& verb,
    const std::filesystem::path& executable,
    const std::vector<std::string>& arguments)
{
    std::string text = verb + " " + executable.string();
    for (const std::string& argument : arguments) {
        text += " [" + argument + "]";
    }
    return text;
}

}  // namespace

class RecordingSurroundings::Runner final : public GitHub::CommandRunning {
public:
    explicit Runner(std::shared_ptr<State> state)
        : _state(std::move(state))
    {}

    CommandResult run(
        const std::filesystem::path& executable,
        const std::vector<std::string>& arguments,
        std::stop_token /*stopToken*/) const override
    {
        _state->journal.push_back(line("run", executable, arguments));
        if (_state->answers.empty()) {
            throw std::logic_error("The script has no answer to this run.");
        }
        const Answer answer = std::move(_state->answers.front());
        _state->answers.pop_front();
        return answer();
    }

private:
    std::shared_ptr<State> _state;
};

RecordingSurroundings::RecordingSurroundings()
    : _state(std::make_shared<State>())
{}

std::shared_ptr<const GitHub::CommandRunning> RecordingSurroundings::runner() const
{
    return std::make_shared<Runner>(_state);
}

ExternalNavigation RecordingSurroundings::navigation() const
{
    ExternalNavigation::Surroundings surroundings;
    surroundings.gitRunner = runner();
    surroundings.editorRunner = runner();
    surroundings.environment = environment;
    surroundings.isExecutable = [known = executables](const std::filesystem::path& path) {
        return known.contains(path.string());
    };
    surroundings.dismissPanel = [state = _state](PanelSearch search) {
        state->journal.emplace_back(
            search == PanelSearch::focusOnly ? "dismiss focus" : "dismiss any");
    };
    surroundings.launch = [state = _state](const Launch& launch) {
        state->journal.push_back(
            line("launch", launch.executable, launch.arguments) + " token "
            + launch.activationToken);
    };
    surroundings.openThroughPortal =
        [state = _state](const PullRequestKit::Url& url, const std::string& token) {
            state->journal.push_back("portal " + url.text + " token " + token);
        };
    return ExternalNavigation(std::move(surroundings));
}

ProgressSink RecordingSurroundings::progress() const
{
    return
        [state = _state](const std::string& text) { state->journal.push_back("progress " + text); };
}

void RecordingSurroundings::ends(std::int32_t status, std::string output, std::string error)
{
    _state->answers.emplace_back(
        [result = CommandResult{status, std::move(output), std::move(error)}] { return result; });
}

void RecordingSurroundings::fails(std::exception_ptr error)
{
    _state->answers.emplace_back(
        [error = std::move(error)]() -> CommandResult { std::rethrow_exception(error); });
}

void RecordingSurroundings::meanwhile(std::function<void()> action)
{
    _state->answers.emplace_back([action = std::move(action)] {
        action();
        return CommandResult{};
    });
}

}  // namespace TestSupport
