#pragma once

#include "Tarnwick/ExternalNavigation.h"

#include <deque>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace TestSupport {

/// Stands in for the desktop and its programs, and keeps one journal of what happened in which
/// order: "progress TEXT", "run PROGRAM [ARGUMENT] …", "dismiss focus", "dismiss any",
/// "launch PROGRAM [ARGUMENT] … token TOKEN", "portal ADDRESS token TOKEN". Programs end as
/// scripted, one answer for each run.
class RecordingSurroundings {
public:
    RecordingSurroundings();

    Tarnwick::ExternalNavigation navigation() const;

    Tarnwick::ProgressSink progress() const;

    /// A runner that writes to the journal.
    std::shared_ptr<const GitHub::CommandRunning> runner() const;

    void ends(std::int32_t status, std::string output = {}, std::string error = {});

    /// The next run throws this.
    void fails(std::exception_ptr error);

    /// What is done while the next run lasts, after which it ends with 0.
    void meanwhile(std::function<void()> action);

    const std::vector<std::string>& journal() const { return _state->journal; }

    GitHub::Environment environment{{"PATH", "/usr/bin"}, {"HOME", "/home/octo"}};
    std::set<std::string> executables{"/usr/bin/code", "/usr/bin/xdg-open"};

private:
    using Answer = std::function<GitHub::CommandResult()>;

    struct State {
        std::vector<std::string> journal;
        std::deque<Answer> answers;
    };

    class Runner;

    std::shared_ptr<State> _state;
};

}  // namespace TestSupport
