#pragma once

#include <QString>

/// The keys of the settings. Stored: do not rename.
namespace Tarnwick::SettingsKeys {

inline const QString unblockedNotifications = QStringLiteral("notifications.unblocked");
inline const QString newPullRequestNotifications = QStringLiteral("notifications.newPullRequests");
inline const QString yourTurnNotifications = QStringLiteral("notifications.yourTurn");
inline const QString repositories = QStringLiteral("filters.repositories");
inline const QString repositoriesConfigured = QStringLiteral("filters.repositoriesConfigured");
inline const QString statuses = QStringLiteral("filters.status");
inline const QString checks = QStringLiteral("filters.checks");
inline const QString schemaVersion = QStringLiteral("filters.schemaVersion");
inline const QString reviewFilters = QStringLiteral("filters.reviewStates");
inline const QString mergeabilities = QStringLiteral("filters.mergeability");
inline const QString reviewers = QStringLiteral("filters.reviewers");
inline const QString arrangement = QStringLiteral("list.arrangement");
inline const QString involvedExplained = QStringLiteral("list.involvedExplained");
inline const QString pollingInterval = QStringLiteral("polling.interval");
inline const QString projectDirectory = QStringLiteral("editor.projectDirectory");
inline const QString darkMode = QStringLiteral("appearance.darkMode");
inline const QString mutedAuthors = QStringLiteral("mutes.authors");

/// Each mute has a key of its own: this and the pull request's storage key.
inline const QString mutePrefix = QStringLiteral("mutes.pullRequest.");

// Older forms, which are read to be translated and never written.
inline const QString reviewQuery = QStringLiteral("filters.reviewQuery");
inline const QString mergeable = QStringLiteral("filters.mergeable");
inline const QString mergeConflicts = QStringLiteral("filters.mergeConflicts");

}  // namespace Tarnwick::SettingsKeys
