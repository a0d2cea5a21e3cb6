#pragma once

#include "PullRequestKit/PullRequest.h"

#include <QString>
#include <QStringList>

namespace Tarnwick {

/// Removes case and accents, for comparison. Safe from any thread.
QString folded(const QString& text);

/// The searchable text of a pull request, folded: title, repository, "#" and number, author and
/// branches. No word matches across two of them. Safe from any thread.
QString searchText(const PullRequestKit::PullRequest& pullRequest);

/// The words of a search text, folded. Safe from any thread.
QStringList foldedWords(const QString& text);

/// Whether the text contains every word; both are folded. Safe from any thread.
bool holdsAll(const QString& foldedText, const QStringList& foldedWords);

}  // namespace Tarnwick
