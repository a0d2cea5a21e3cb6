#pragma once

#include <string_view>

/// The keys of the settings. Stored: do not rename.
namespace Tarnwick::SettingsKeys {

inline constexpr std::string_view unblockedNotifications = "notifications.unblocked";
inline constexpr std::string_view newPullRequestNotifications = "notifications.newPullRequests";
inline constexpr std::string_view yourTurnNotifications = "notifications.yourTurn";
inline constexpr std::string_view repositories = "filters.repositories";
inline constexpr std::string_view repositoriesConfigured = "filters.repositoriesConfigured";
inline constexpr std::string_view statuses = "filters.status";
inline constexpr std::string_view checks = "filters.checks";
inline constexpr std::string_view schemaVersion = "filters.schemaVersion";
inline constexpr std::string_view reviewFilters = "filters.reviewStates";
inline constexpr std::string_view mergeabilities = "filters.mergeability";
inline constexpr std::string_view reviewers = "filters.reviewers";
inline constexpr std::string_view arrangement = "list.arrangement";
inline constexpr std::string_view involvedExplained = "list.involvedExplained";
inline constexpr std::string_view pollingInterval = "polling.interval";
inline constexpr std::string_view projectDirectory = "editor.projectDirectory";
inline constexpr std::string_view darkMode = "appearance.darkMode";
inline constexpr std::string_view mutedAuthors = "mutes.authors";

/// Followed by the storage key of the pull request.
inline constexpr std::string_view mutePrefix = "mutes.pullRequest.";

// Older keys, migrated and never written.
inline constexpr std::string_view reviewQuery = "filters.reviewQuery";
inline constexpr std::string_view mergeable = "filters.mergeable";
inline constexpr std::string_view mergeConflicts = "filters.mergeConflicts";

}  // namespace Tarnwick::SettingsKeys
