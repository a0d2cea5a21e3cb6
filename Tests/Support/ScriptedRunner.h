#pragma once

#include "GitHubProvider/Process/CommandRunning.h"
#include "Support/Mapped.h"
#include "Support/Names.h"

#include <deque>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

/// Stands in for running programs: it records what was asked for and gives the answers that the
/// test has put in line. A run for which there is no answer is an error. Belongs to one thread.
class ScriptedRunner final : public GitHub::CommandRunning {
public:
    struct Call {
        std::filesystem::path executable;
        std::vector<std::string> arguments;

        bool operator==(const Call&) const = default;
    };

    using Answer = std::function<GitHub::CommandResult()>;

    void answer(Answer answer) { _answers.push_back(std::move(answer)); }

    void prints(std::string standardOutput, std::string standardError = {})
    {
        ends(0, std::move(standardOutput), std::move(standardError));
    }

    void ends(std::int32_t status, std::string standardOutput, std::string standardError)
    {
        answer(
            [result = GitHub::CommandResult{
                 status, std::move(standardOutput), std::move(standardError)}] { return result; });
    }

    template<typename Error>
    void fails(Error error)
    {
        answer([error]() -> GitHub::CommandResult { throw error; });
    }

    const std::vector<Call>& calls() const { return _calls; }

    std::vector<std::vector<std::string>> argumentLists() const
    {
        return mapped(_calls, &Call::arguments);
    }

    bool hasAnswersLeft() const { return !_answers.empty(); }

    GitHub::CommandResult run(
        const std::filesystem::path& executable,
        const std::vector<std::string>& arguments,
        std::stop_token stopToken) const override
    {
        _calls.push_back({executable, arguments});
        _lastToken = std::move(stopToken);
        if (_answers.empty()) {
            throw std::logic_error("The script has no answer to this run.");
        }
        const Answer answer = std::move(_answers.front());
        _answers.pop_front();
        return answer();
    }

    const std::stop_token& lastToken() const { return _lastToken; }

private:
    mutable std::vector<Call> _calls;
    mutable std::deque<Answer> _answers;
    mutable std::stop_token _lastToken;
};

}  // namespace TestSupport
