#include "Tarnwick/Model/MuteOperations.h"

#include <functional>
#include <utility>
#include <variant>

namespace Tarnwick {

using namespace PullRequestKit;

MuteOperations::MuteOperations(
    const Settings& settings, SettingsOperations& operations, std::shared_ptr<Clock> clock)
    : _settings(settings)
    , _operations(operations)
    , _clock(std::move(clock))
    , _alarm(_clock, [this] { wait(); })
{}

void MuteOperations::untilChange(const PullRequest& pullRequest)
{
    mute(pullRequest, MutedUntilChange{seenNow(pullRequest, nullptr), _clock->now()});
}

void MuteOperations::forADay(const PullRequest& pullRequest)
{
    mute(pullRequest, MutedUntilTime{_clock->now() + muteDay});
}

void MuteOperations::mute(const PullRequest& pullRequest, const Mute& mute)
{
    _operations.change([&](Settings& settings) {
        settings.mutes.insert_or_assign(pullRequest.id.storageKey(), mute);
    });
}

void MuteOperations::unmute(const PullRequest& pullRequest)
{
    _operations.change(
        [&](Settings& settings) { settings.mutes.erase(pullRequest.id.storageKey()); });
}

void MuteOperations::setAuthor(const std::string& login, bool isMuted)
{
    _operations.change([&](Settings& settings) {
        if (isMuted) {
            settings.mutedAuthors.insert(login);
        } else {
            settings.mutedAuthors.erase(login);
        }
    });
}

std::optional<Date> MuteOperations::mutedUntil(const PullRequest& pullRequest) const
{
    const Mute* const mute = muteOf(pullRequest, _settings.mutes);
    const auto* const untilTime = mute == nullptr ? nullptr : std::get_if<MutedUntilTime>(mute);
    return untilTime == nullptr ? std::nullopt : std::optional(untilTime->time);
}

void MuteOperations::endChanged(std::span<const PullRequest> listed)
{
    end([&, now = _clock->now()](Mutes mutes) {
        return withoutEnded(std::move(mutes), listed, now);
    });
}

void MuteOperations::endOutdated()
{
    end([now = _clock->now()](Mutes mutes) { return withoutEnded(std::move(mutes), now); });
}

/// If the clock was set meanwhile, it waits again.
void MuteOperations::wait()
{
    _alarm.cancel();
    const auto next = nextMuteEnd(_settings.mutes);
    if (!next) {
        return;
    }
    const std::chrono::milliseconds rest = *next - _clock->now();
    if (rest.count() > 0) {
        _alarm.ringAfter(rest);
    } else {
        endOutdated();
    }
}

/// Stores nothing if no mute has ended.
void MuteOperations::end(const std::function<Mutes(Mutes)>& lasting)
{
    if (lasting(_settings.mutes) != _settings.mutes) {
        _operations.change(
            [&](Settings& settings) { settings.mutes = lasting(std::move(settings.mutes)); });
    }
}

}  // namespace Tarnwick
