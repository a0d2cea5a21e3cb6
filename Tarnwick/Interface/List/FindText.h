#pragma once

#include "PullRequestKit/PullRequest.h"

#include <QString>
#include <QStringList>

namespace Tarnwick {

/// A text as searching compares it: without case and accents. Safe from any thread.
QString folded(const QString& text);

/// Everything of a pull request in which words are looked for, folded: the title, the repository,
/// the number with its "#", the author and the branches. No word is found across two of them. Safe
/// from any thread.
QString searchText(const PullRequestKit::PullRequest& pullRequest);

/// The words of what somebody types to find something, folded. Safe from any thread.
QStringList foldedWords(const QString& text);

/// Whether each of the words is in the text; both are folded. Safe from any thread.
bool holdsAll(const QString& foldedText, const QStringList& foldedWords);

}  // namespace Tarnwick
