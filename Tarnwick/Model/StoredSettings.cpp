#include "Tarnwick/Model/StoredSettings.h"

#include "Tarnwick/Model/SettingsKeys.h"
#include "Tarnwick/Model/SettingsMigration.h"
#include "Tarnwick/Persistence/SeenTexts.h"

#include <QStringList>

#include <algorithm>
#include <span>

namespace Tarnwick {
namespace {

namespace Keys = SettingsKeys;

/// The name under which "Any" was stored before.
constexpr std::string_view olderNameOfAny = "All";

QStringList listOf(const std::set<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts) {
        list.append(QString::fromStdString(text));
    }
    return list;
}

/// A mute until a time is a date, one until change a list: when the pull request was last listed,
/// then what was seen of it. Nothing for anything else.
std::optional<Mute> readMute(const DefaultsStore& defaults, const QString& key)
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

void writeMute(DefaultsStore& defaults, const QString& key, const Mute& mute)
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

/// Reads one setting after the other and notes what is to be corrected.
class Reader {
public:
    explicit Reader(const DefaultsStore& defaults)
        : _defaults(defaults)
    {}

    StoredSettings read();

private:
    /// The set stored under a key, or `fallback` when the key is absent or holds texts of which
    /// none is known. A stored list that is not in its regular form is to be written in it.
    template<typename E>
    std::set<E> set(const QString& key, const std::set<E>& fallback)
    {
        const auto stored = readTextList(_defaults, key);
        if (!stored) {
            return fallback;
        }
        std::set<E> values = casesNamed<E>(*stored);
        if (values.empty() && !stored->empty()) {
            values = fallback;
        }
        const std::set<std::string> texts = textsOf(values);
        if (!std::ranges::equal(texts, *stored)) {
            correct(key, listOf(texts));
        }
        return values;
    }

    void correct(const QString& key, const QVariant& value)
    {
        _result.corrections.emplace_back(key, value);
    }

    std::set<ChecksFilter> checks();
    std::set<ReviewFilter> reviewFilters();
    std::set<MergeabilityFilter> mergeabilities();
    PollingInterval pollingInterval() const;
    ReviewerFilter reviewerFilter();
    Arrangement arrangement() const;
    Mutes mutes() const;
    Logins mutedAuthors() const;

    const DefaultsStore& _defaults;
    StoredSettings _result;
};

StoredSettings Reader::read()
{
    Settings& settings = _result.settings;
    settings.unblockedNotificationsEnabled =
        readFlag(_defaults, Keys::unblockedNotifications).value_or(false);
    settings.newPullRequestNotificationsEnabled =
        readFlag(_defaults, Keys::newPullRequestNotifications).value_or(false);
    settings.yourTurnNotificationsEnabled =
        readFlag(_defaults, Keys::yourTurnNotifications).value_or(false);
    if (const auto names = readTextList(_defaults, Keys::repositories)) {
        settings.selectedRepositories = {names->begin(), names->end()};
    }
    settings.statuses = set(Keys::statuses, Settings().statuses);
    settings.checks = checks();
    settings.reviewFilters = reviewFilters();
    settings.mergeabilities = mergeabilities();
    settings.pollingInterval = pollingInterval();
    settings.reviewerFilter = reviewerFilter();
    settings.arrangement = arrangement();
    settings.projectDirectory = readText(_defaults, Keys::projectDirectory).value_or("");
    settings.darkMode = readFlag(_defaults, Keys::darkMode).value_or(false);
    settings.isInvolvedExplained = readFlag(_defaults, Keys::involvedExplained).value_or(false);
    settings.mutes = mutes();
    settings.mutedAuthors = mutedAuthors();
    return std::move(_result);
}

std::set<ChecksFilter> Reader::checks()
{
    auto checks = set(Keys::checks, everyCase<ChecksFilter>());
    const auto version = readInteger(_defaults, Keys::schemaVersion).value_or(0);
    if (version < SettingsMigration::currentSchemaVersion) {
        checks = SettingsMigration::checksBeforeVersion2(std::move(checks));
        correct(Keys::checks, listOf(textsOf(checks)));
        correct(
            Keys::schemaVersion,
            QVariant::fromValue<qlonglong>(SettingsMigration::currentSchemaVersion));
    }
    return checks;
}

std::set<ReviewFilter> Reader::reviewFilters()
{
    const auto stored = readTextList(_defaults, Keys::reviewFilters);
    std::set<ReviewFilter> filters;
    if (stored) {
        filters = casesNamed<ReviewFilter>(*stored);
    } else {
        filters = SettingsMigration::reviewFiltersFromQuery(
            readTextList(_defaults, Keys::reviewQuery).value_or(std::vector<std::string>()));
    }
    const auto complete = SettingsMigration::withCommentedReviews(filters);
    if (!stored || complete != filters) {
        correct(Keys::reviewFilters, listOf(textsOf(complete)));
    }
    return complete;
}

std::set<MergeabilityFilter> Reader::mergeabilities()
{
    if (const auto stored = readTextList(_defaults, Keys::mergeabilities)) {
        return casesNamed<MergeabilityFilter>(*stored);
    }
    const auto values = SettingsMigration::mergeabilitiesFromOlderKeys(
        readFlag(_defaults, Keys::mergeable), readTextList(_defaults, Keys::mergeConflicts));
    correct(Keys::mergeabilities, listOf(textsOf(values)));
    return values;
}

PollingInterval Reader::pollingInterval() const
{
    const std::chrono::seconds stored{readInteger(_defaults, Keys::pollingInterval).value_or(0)};
    return pollingIntervalOf(stored).value_or(PollingInterval::fiveMinutes);
}

ReviewerFilter Reader::reviewerFilter()
{
    const auto stored = readText(_defaults, Keys::reviewers);
    if (stored == olderNameOfAny) {
        correct(
            Keys::reviewers,
            QString::fromStdString(std::string(PullRequestKit::nameOf(ReviewerFilter::any))));
        return ReviewerFilter::any;
    }
    const auto value = stored ? PullRequestKit::enumNamed<ReviewerFilter>(*stored) : std::nullopt;
    return value.value_or(ReviewerFilter::myself);
}

Arrangement Reader::arrangement() const
{
    const auto stored = readText(_defaults, Keys::arrangement);
    const auto value = stored ? PullRequestKit::enumNamed<Arrangement>(*stored) : std::nullopt;
    return value.value_or(Arrangement::byReviewState);
}

Mutes Reader::mutes() const
{
    Mutes mutes;
    for (const QString& key : _defaults.keys(Keys::mutePrefix)) {
        if (const auto mute = readMute(_defaults, key)) {
            mutes.emplace(key.mid(Keys::mutePrefix.size()).toStdString(), *mute);
        }
    }
    return mutes;
}

Logins Reader::mutedAuthors() const
{
    const auto stored = readTextList(_defaults, Keys::mutedAuthors);
    Logins authors = stored ? Logins(stored->begin(), stored->end()) : Logins();
    authors.erase(std::string());
    return authors;
}

void write(DefaultsStore& defaults, const QString& key, bool flag)
{
    writeFlag(defaults, key, flag);
}

void write(DefaultsStore& defaults, const QString& key, const std::string& text)
{
    writeText(defaults, key, text);
}

void write(DefaultsStore& defaults, const QString& key, PollingInterval interval)
{
    writeInteger(defaults, key, secondsOf(interval).count());
}

template<PullRequestKit::NamedEnum E>
void write(DefaultsStore& defaults, const QString& key, E value)
{
    writeText(defaults, key, std::string(PullRequestKit::nameOf(value)));
}

template<typename E>
void write(DefaultsStore& defaults, const QString& key, const std::set<E>& values)
{
    writeTextList(defaults, key, textsOf(values));
}

void write(DefaultsStore& defaults, const QString& key, const Logins& logins)
{
    writeTextList(defaults, key, logins);
}

QString keyOfMute(const std::string& storageKey)
{
    return Keys::mutePrefix + QString::fromStdString(storageKey);
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
    const std::optional<QString>& chosen)
{
    const auto writeIfDifferent = [&](const QString& key, auto setting) {
        if (before.*setting != after.*setting || key == chosen) {
            write(defaults, key, after.*setting);
        }
    };
    writeIfDifferent(Keys::statuses, &Settings::statuses);
    writeIfDifferent(Keys::checks, &Settings::checks);
    writeIfDifferent(Keys::reviewFilters, &Settings::reviewFilters);
    writeIfDifferent(Keys::mergeabilities, &Settings::mergeabilities);
    writeIfDifferent(Keys::reviewers, &Settings::reviewerFilter);
    writeIfDifferent(Keys::arrangement, &Settings::arrangement);
    writeIfDifferent(Keys::pollingInterval, &Settings::pollingInterval);
    writeIfDifferent(Keys::projectDirectory, &Settings::projectDirectory);
    writeIfDifferent(Keys::unblockedNotifications, &Settings::unblockedNotificationsEnabled);
    writeIfDifferent(
        Keys::newPullRequestNotifications, &Settings::newPullRequestNotificationsEnabled);
    writeIfDifferent(Keys::yourTurnNotifications, &Settings::yourTurnNotificationsEnabled);
    writeIfDifferent(Keys::darkMode, &Settings::darkMode);
    writeIfDifferent(Keys::involvedExplained, &Settings::isInvolvedExplained);
    writeIfDifferent(Keys::mutedAuthors, &Settings::mutedAuthors);
    writeMutes(defaults, before.mutes, after.mutes);
    if (before.selectedRepositories != after.selectedRepositories) {
        writeSelection(defaults, after.selectedRepositories);
    }
}

void writeSelection(DefaultsStore& defaults, const std::set<std::string>& names)
{
    writeTextList(defaults, Keys::repositories, names);
    writeFlag(defaults, Keys::repositoriesConfigured, true);
}

}  // namespace Tarnwick
