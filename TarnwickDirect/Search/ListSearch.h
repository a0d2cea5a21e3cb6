#pragma once

#include "PullRequestKit/PullRequestRow.h"

#include <QString>
#include <QStringList>

#include <span>
#include <vector>

namespace TarnwickDirect {

/// How many letters a search must have, all its words together, before anything is found.
inline constexpr int fewestLetters = 3;

/// The rows that hold every word in the title, the repository, the number with its "#", the author
/// or a branch: first the one whose number was typed, then the list's order. Nothing for less than
/// three letters, or for more than 200, which nobody types. Safe from any thread.
std::vector<const PullRequestKit::PullRequestRow*> found(
    std::span<const PullRequestKit::PullRequestRow> rows, const QStringList& words);

/// A stranger's text without steering characters, on one line.
QString plainText(const std::string& text);

/// What stands below a result's title, such as "octo/tools #12 · mara".
QString detailsOf(const PullRequestKit::PullRequest& pullRequest);

}  // namespace TarnwickDirect
