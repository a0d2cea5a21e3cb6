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

/// What the user has muted, and the end of each mute when its time has come. Main thread only.
class MuteOperations {
public:
    /// Requires: the references outlive this object, and a clock.
    MuteOperations(
        const Settings& settings, SettingsOperations& operations, std::shared_ptr<Clock> clock);

    void untilChange(const PullRequestKit::PullRequest& pullRequest);
    void forADay(const PullRequestKit::PullRequest& pullRequest);
    void unmute(const PullRequestKit::PullRequest& pullRequest);
    /// Mutes everything by this author, or nothing more; logins have no letter case.
    void setAuthor(const std::string& login, bool isMuted);

    /// When the pull request's mute ends by itself; nothing without one that does.
    std::optional<PullRequestKit::Date> mutedUntil(
        const PullRequestKit::PullRequest& pullRequest) const;

    /// A refresh has listed these: mutes of what has changed end.
    void endChanged(std::span<const PullRequestKit::PullRequest> listed);

    void endOutdated();

    /// Ends the next mute at its time. To be called when the mutes may be others.
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
