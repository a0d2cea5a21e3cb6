#include "Tarnwick/Model/StoredSettings.h"

#include "Tarnwick/Model/SettingsKeys.h"
#include "Tarnwick/Model/SettingsMigration.h"
#include "Tarnwick/Persistence/IniValue.h"
#include "Tarnwick/Persistence/SeenTexts.h"

#include <algorithm>
#include <span>

namespace Tarnwick {
namespace {

namespace Keys = SettingsKeys;

constexpr std::string_view olderNameOfAny = "All";

template<typename Texts>
std::vector<std::string> listOf(const Texts& texts)
{
    return {texts.begin(), texts.end()};
}

/// Calls `function` with the key and member of each setting that is stored under one key alone.
template<typename Function>
void forEachSetting(const Function& function)
{
    function(Keys::statuses, &Settings::statuses);
    function(Keys::checks, &Settings::checks);
    function(Keys::reviewFilters, &Settings::reviewFilters);
    function(Keys::mergeabilities, &Settings::mergeabilities);
    function(Keys::reviewers, &Settings::reviewerFilter);
    function(Keys::arrangement, &Settings::arrangement);
    function(Keys::pollingInterval, &Settings::pollingInterval);
    function(Keys::projectDirectory, &Settings::projectDirectory);
    function(Keys::unblockedNotifications, &Settings::unblockedNotificationsEnabled);
    function(Keys::newPullRequestNotifications, &Settings::newPullRequestNotificationsEnabled);
    function(Keys::yourTurnNotifications, &Settings::yourTurnNotificationsEnabled);
    function(Keys::darkMode, &Settings::darkMode);
    function(Keys::involvedExplained, &Settings::isInvolvedExplained);
    function(Keys::mutedAuthors, &Settings::mutedAuthors);
}

/// A mute until a time is stored as a date. A mute until change is stored as a list: the time it
/// was last listed, then the seen state. Nothing for anything else.
std::optional<Mute> readMute(const DefaultsStore& defaults, std::string_view key)
{
    if (const auto time = readDate(defaults, key)) {
        return MutedUntilTime{*time};
    }
    const auto texts = readTextList(defaults, key);
    if (!texts || texts->empty()) {
        return std::nullopt;
    }
    const auto listedAt = PullRequestKit::parseDate(texts->front());
    const auto seen = seenFromTexts(std::span(*texts).subspan(1));
    return listedAt && seen ? std::optional(MutedUntilChange{*seen, *listedAt}) : std::nullopt;
}

void writeMute(DefaultsStore& defaults, std::string_view key, const Mute& mute)
{
    if (const auto* const untilTime = std::get_if<MutedUntilTime>(&mute)) {
        writeDate(defaults, key, untilTime->time);
        return;
    }
    const auto& untilChange = std::get<MutedUntilChange>(mute);
    std::vector<std::string> texts = seenTexts(untilChange.seen);
    texts.insert(texts.begin(), PullRequestKit::formatDate(untilChange.listedAt));
    writeTextList(defaults, key, texts);
}

/// Reads the settings and collects corrections. Missing settings keep their initial values.
class Reader {
public:
    explicit Reader(const DefaultsStore& defaults)
        : _defaults(defaults)
    {}

    StoredSettings read()
    {
        Settings& settings = _result.settings;
        forEachSetting([&](std::string_view key, auto member) { read(key, settings.*member); });
        const auto names = readTextList(_defaults, Keys::repositories).value_or(Texts());
        settings.selectedRepositories = {names.begin(), names.end()};
        for (const std::string& key : _defaults.keys(Keys::mutePrefix)) {
            if (const auto mute = readMute(_defaults, key)) {
                settings.mutes.emplace(key.substr(Keys::mutePrefix.size()), *mute);
            }
        }
        return std::move(_result);
    }

private:
    using Texts = std::vector<std::string>;

    void correct(std::string_view key, std::string value)
    {
        _result.corrections.emplace_back(key, std::move(value));
    }

    template<typename E>
    void correct(std::string_view key, const std::set<E>& values)
    {
        correct(key, IniValue::encodeList(listOf(textsOf(values))));
    }

    void read(std::string_view key, bool& flag) { flag = readFlag(_defaults, key).value_or(flag); }

    void read(std::string_view key, std::string& text)
    {
        text = readText(_defaults, key).value_or(text);
    }

    void read(std::string_view key, PollingInterval& interval)
    {
        const std::chrono::seconds stored{readInteger(_defaults, key).value_or(0)};
        interval = pollingIntervalOf(stored).value_or(interval);
    }

    template<PullRequestKit::NamedEnum E>
    void read(std::string_view key, E& value)
    {
        const auto stored = readText(_defaults, key);
        const auto named = stored ? PullRequestKit::enumNamed<E>(*stored) : std::nullopt;
        value = named.value_or(value);
    }

    void read(std::string_view key, Logins& logins)
    {
        const Texts stored = readTextList(_defaults, key).value_or(Texts());
        logins = {stored.begin(), stored.end()};
        logins.erase(std::string());
    }

    /// A set without any known text counts as absent. An irregular list is corrected.
    template<typename E>
    void readSet(std::string_view key, std::set<E>& values)
    {
        const auto stored = readTextList(_defaults, key);
        if (!stored) {
            return;
        }
        std::set<E> known = casesNamed<E>(*stored);
        if (!known.empty() || stored->empty()) {
            values = std::move(known);
        }
        if (!std::ranges::equal(textsOf(values), *stored)) {
            correct(key, values);
        }
    }

    void read(std::string_view key, std::set<StatusFilter>& statuses) { readSet(key, statuses); }

    void read(std::string_view key, std::set<ChecksFilter>& checks);
    void read(std::string_view key, std::set<ReviewFilter>& filters);
    void read(std::string_view key, std::set<MergeabilityFilter>& values);
    void read(std::string_view key, ReviewerFilter& filter);

    const DefaultsStore& _defaults;
    StoredSettings _result;
};

void Reader::read(std::string_view key, std::set<ChecksFilter>& checks)
{
    readSet(key, checks);
    const auto version = readInteger(_defaults, Keys::schemaVersion).value_or(0);
    if (version < SettingsMigration::currentSchemaVersion) {
        checks = SettingsMigration::checksBeforeVersion2(std::move(checks));
        correct(key, checks);
        correct(Keys::schemaVersion, std::to_string(SettingsMigration::currentSchemaVersion));
    }
}

void Reader::read(std::string_view key, std::set<ReviewFilter>& filters)
{
    const auto stored = readTextList(_defaults, key);
    const auto before = stored ? casesNamed<ReviewFilter>(*stored)
                               : SettingsMigration::reviewFiltersFromQuery(
                                     readTextList(_defaults, Keys::reviewQuery).value_or(Texts()));
    filters = SettingsMigration::withCommentedReviews(before);
    if (!stored || filters != before) {
        correct(key, filters);
    }
}

void Reader::read(std::string_view key, std::set<MergeabilityFilter>& values)
{
    if (const auto stored = readTextList(_defaults, key)) {
        values = casesNamed<MergeabilityFilter>(*stored);
        return;
    }
    values = SettingsMigration::mergeabilitiesFromOlderKeys(
        readFlag(_defaults, Keys::mergeable), readTextList(_defaults, Keys::mergeConflicts));
    correct(key, values);
}

void Reader::read(std::string_view key, ReviewerFilter& filter)
{
    if (readText(_defaults, key) == olderNameOfAny) {
        filter = ReviewerFilter::any;
        correct(key, std::string(PullRequestKit::nameOf(filter)));
        return;
    }
    read<ReviewerFilter>(key, filter);
}

void write(DefaultsStore& defaults, std::string_view key, bool flag)
{
    writeFlag(defaults, key, flag);
}

void write(DefaultsStore& defaults, std::string_view key, const std::string& text)
{
    writeText(defaults, key, text);
}

void write(DefaultsStore& defaults, std::string_view key, PollingInterval interval)
{
    writeInteger(defaults, key, secondsOf(interval).count());
}

template<PullRequestKit::NamedEnum E>
void write(DefaultsStore& defaults, std::string_view key, E value)
{
    writeText(defaults, key, PullRequestKit::nameOf(value));
}

template<typename E>
void write(DefaultsStore& defaults, std::string_view key, const std::set<E>& values)
{
    writeTextList(defaults, key, listOf(textsOf(values)));
}

void write(DefaultsStore& defaults, std::string_view key, const Logins& logins)
{
    writeTextList(defaults, key, listOf(logins));
}

std::string keyOfMute(const std::string& storageKey)
{
    return std::string(Keys::mutePrefix) + storageKey;
}

void writeMutes(DefaultsStore& defaults, const Mutes& before, const Mutes& after)
{
    for (const auto& [name, mute] : before) {
        if (!after.contains(name)) {
            defaults.remove(keyOfMute(name));
        }
    }
    for (const auto& [name, mute] : after) {
        const auto known = before.find(name);
        if (known == before.end() || known->second != mute) {
            writeMute(defaults, keyOfMute(name), mute);
        }
    }
}

}  // namespace

StoredSettings readSettings(const DefaultsStore& defaults)
{
    return Reader(defaults).read();
}

void writeDifferences(
    DefaultsStore& defaults,
    const Settings& before,
    const Settings& after,
    const std::optional<std::string_view>& chosen)
{
    forEachSetting([&](std::string_view key, auto member) {
        if (before.*member != after.*member || key == chosen) {
            write(defaults, key, after.*member);
        }
    });
    writeMutes(defaults, before.mutes, after.mutes);
    if (before.selectedRepositories != after.selectedRepositories) {
        persistRepositories(defaults, after.selectedRepositories);
    }
}

void persistRepositories(DefaultsStore& defaults, const std::set<std::string>& names)
{
    writeTextList(defaults, Keys::repositories, listOf(names));
    writeFlag(defaults, Keys::repositoriesConfigured, true);
}

}  // namespace Tarnwick
