#pragma once

#include "PullRequestKit/PullRequest.h"
#include "Tarnwick/Async/Alarm.h"
#include "Tarnwick/Model/SettingsOperations.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace Tarnwick {

/// Changes the user's mutes and ends them in time. Main thread only.
class MuteOperations {
public:
    /// Requires: the references outlive it, and `clock` is not null.
    MuteOperations(
        const Settings& settings, SettingsOperations& operations, std::shared_ptr<Clock> clock);

    void untilChange(const PullRequestKit::PullRequest& pullRequest);
    void forADay(const PullRequestKit::PullRequest& pullRequest);
    void unmute(const PullRequestKit::PullRequest& pullRequest);
    /// Mutes or unmutes all pull requests by this author, ignoring letter case.
    void setAuthor(const std::string& login, bool isMuted);

    /// When the mute ends; nothing without one or if it ends on a change.
    std::optional<PullRequestKit::Date> mutedUntil(
        const PullRequestKit::PullRequest& pullRequest) const;

    /// Call after a refresh: ends the mutes of changed pull requests.
    void endChanged(std::span<const PullRequestKit::PullRequest> listed);

    void endOutdated();

    /// Ends the next mute at its time. Call whenever the mutes may have changed.
    void wait();

    void stop() { _alarm.cancel(); }

private:
    void mute(const PullRequestKit::PullRequest& pullRequest, const Mute& mute);
    void end(const std::function<Mutes(Mutes)>& lasting);

    const Settings& _settings;
    SettingsOperations& _operations;
    std::shared_ptr<Clock> _clock;
    Alarm _alarm;
};

}  // namespace Tarnwick
