#pragma once

#include "PullRequestKit/PullRequestRow.h"

#include <QString>
#include <QStringList>

#include <span>
#include <vector>

namespace TarnwickDirect {

/// The minimum number of letters in a search, in all words together.
inline constexpr int fewestLetters = 3;

/// The rows that contain every word in the title, the repository, "#" and number, the author or a
/// branch. A row with exactly the typed number comes first, then the list's order. Empty for fewer
/// than three or more than 200 letters. Safe from any thread.
std::vector<const PullRequestKit::PullRequestRow*> found(
    std::span<const PullRequestKit::PullRequestRow> rows, const QStringList& words);

/// An untrusted text in one line, without control characters.
QString plainText(const std::string& text);

/// The second line of a result, such as "octo/tools #12 · mara".
QString detailsOf(const PullRequestKit::PullRequest& pullRequest);

}  // namespace TarnwickDirect
