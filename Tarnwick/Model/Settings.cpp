#include "Tarnwick/Model/Settings.h"

#include "Tarnwick/Model/SettingsKeys.h"
#include "Tarnwick/Model/SettingsMigration.h"

namespace Tarnwick {
namespace {

/// The name under which "Any" was stored before.
constexpr std::string_view olderNameOfAny = "All";

template<typename E>
void writeSet(DefaultsStore& defaults, const QString& key, const std::set<E>& values)
{
    writeTextList(defaults, key, textsOf(values));
}

/// The set stored under a key, or `fallback` when the key is absent or holds texts of which none is
/// known. A stored list that is not in its regular form is written back in it.
template<typename E>
std::set<E> loadSet(DefaultsStore& defaults, const QString& key, const std::set<E>& fallback)
{
    const auto stored = readTextList(defaults, key);
    if (!stored) {
        return fallback;
    }
    std::set<E> values = casesNamed<E>(*stored);
    if (values.empty() && !stored->empty()) {
        values = fallback;
    }
    const std::set<std::string> texts = textsOf(values);
    if (!std::ranges::equal(texts, *stored)) {
        writeTextList(defaults, key, texts);
    }
    return values;
}

}  // namespace

bool hasDefaultFilters(const Settings& settings)
{
    const Settings defaults;
    return settings.statuses == defaults.statuses && settings.checks == defaults.checks
           && settings.reviewFilters == defaults.reviewFilters
           && settings.mergeabilities == defaults.mergeabilities
           && settings.reviewerFilter == defaults.reviewerFilter;
}

SettingsStore::SettingsStore(DefaultsStore& defaults)
    : _defaults(defaults)
{}

Settings SettingsStore::load()
{
    namespace Keys = SettingsKeys;
    _defaults.refresh();
    Settings settings;
    settings.unblockedNotificationsEnabled =
        readFlag(_defaults, Keys::unblockedNotifications).value_or(false);
    settings.newPullRequestNotificationsEnabled =
        readFlag(_defaults, Keys::newPullRequestNotifications).value_or(false);
    if (const auto names = readTextList(_defaults, Keys::repositories)) {
        settings.selectedRepositories = {names->begin(), names->end()};
    }
    settings.statuses = loadStatuses();
    settings.checks = loadChecks();
    settings.reviewFilters = loadReviewFilters();
    settings.mergeabilities = loadMergeabilities();
    settings.pollingInterval = loadPollingInterval();
    settings.reviewerFilter = loadReviewerFilter();
    settings.projectDirectory = readText(_defaults, Keys::projectDirectory).value_or("");
    settings.darkMode = readFlag(_defaults, Keys::darkMode).value_or(false);
    return settings;
}

std::set<StatusFilter> SettingsStore::loadStatuses()
{
    return loadSet(_defaults, SettingsKeys::statuses, Settings().statuses);
}

std::set<ChecksFilter> SettingsStore::loadChecks()
{
    auto checks = loadSet(_defaults, SettingsKeys::checks, everyCase<ChecksFilter>());
    const auto version = readInteger(_defaults, SettingsKeys::schemaVersion).value_or(0);
    if (version < SettingsMigration::currentSchemaVersion) {
        checks = SettingsMigration::checksBeforeVersion2(std::move(checks));
        setChecks(checks);
        writeInteger(
            _defaults, SettingsKeys::schemaVersion, SettingsMigration::currentSchemaVersion);
    }
    return checks;
}

std::set<ReviewFilter> SettingsStore::loadReviewFilters()
{
    const auto stored = readTextList(_defaults, SettingsKeys::reviewFilters);
    std::set<ReviewFilter> filters;
    if (stored) {
        filters = casesNamed<ReviewFilter>(*stored);
    } else {
        filters = SettingsMigration::reviewFiltersFromQuery(
            readTextList(_defaults, SettingsKeys::reviewQuery)
                .value_or(std::vector<std::string>()));
    }
    const auto complete = SettingsMigration::withCommentedReviews(filters);
    if (!stored || complete != filters) {
        setReviewFilters(complete);
    }
    return complete;
}

std::set<MergeabilityFilter> SettingsStore::loadMergeabilities()
{
    if (const auto stored = readTextList(_defaults, SettingsKeys::mergeabilities)) {
        return casesNamed<MergeabilityFilter>(*stored);
    }
    const auto values = SettingsMigration::mergeabilitiesFromOlderKeys(
        readFlag(_defaults, SettingsKeys::mergeable),
        readTextList(_defaults, SettingsKeys::mergeConflicts));
    setMergeabilities(values);
    return values;
}

PollingInterval SettingsStore::loadPollingInterval() const
{
    const std::chrono::seconds stored{
        readInteger(_defaults, SettingsKeys::pollingInterval).value_or(0)};
    return pollingIntervalOf(stored).value_or(PollingInterval::fiveMinutes);
}

ReviewerFilter SettingsStore::loadReviewerFilter()
{
    const auto stored = readText(_defaults, SettingsKeys::reviewers);
    if (stored == olderNameOfAny) {
        setReviewerFilter(ReviewerFilter::any);
        return ReviewerFilter::any;
    }
    const auto value = stored ? PullRequestKit::enumNamed<ReviewerFilter>(*stored) : std::nullopt;
    return value.value_or(ReviewerFilter::myself);
}

bool SettingsStore::isRepositorySelectionConfigured() const
{
    _defaults.refresh();
    return readFlag(_defaults, SettingsKeys::repositoriesConfigured).value_or(false);
}

void SettingsStore::setSelectedRepositories(const std::set<std::string>& names)
{
    writeTextList(_defaults, SettingsKeys::repositories, names);
    writeFlag(_defaults, SettingsKeys::repositoriesConfigured, true);
}

void SettingsStore::setStatuses(const std::set<StatusFilter>& values)
{
    writeSet(_defaults, SettingsKeys::statuses, values);
}

void SettingsStore::setChecks(const std::set<ChecksFilter>& values)
{
    writeSet(_defaults, SettingsKeys::checks, values);
}

void SettingsStore::setReviewFilters(const std::set<ReviewFilter>& values)
{
    writeSet(_defaults, SettingsKeys::reviewFilters, values);
}

void SettingsStore::setMergeabilities(const std::set<MergeabilityFilter>& values)
{
    writeSet(_defaults, SettingsKeys::mergeabilities, values);
}

void SettingsStore::setReviewerFilter(ReviewerFilter value)
{
    writeText(_defaults, SettingsKeys::reviewers, std::string(PullRequestKit::nameOf(value)));
}

void SettingsStore::setPollingInterval(PollingInterval value)
{
    writeInteger(_defaults, SettingsKeys::pollingInterval, secondsOf(value).count());
}

void SettingsStore::setProjectDirectory(const std::string& path)
{
    writeText(_defaults, SettingsKeys::projectDirectory, path);
}

void SettingsStore::setUnblockedNotificationsEnabled(bool enabled)
{
    writeFlag(_defaults, SettingsKeys::unblockedNotifications, enabled);
}

void SettingsStore::setNewPullRequestNotificationsEnabled(bool enabled)
{
    writeFlag(_defaults, SettingsKeys::newPullRequestNotifications, enabled);
}

void SettingsStore::setDarkMode(bool isDark)
{
    writeFlag(_defaults, SettingsKeys::darkMode, isDark);
}

}  // namespace Tarnwick
