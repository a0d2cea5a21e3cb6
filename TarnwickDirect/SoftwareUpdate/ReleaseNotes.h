#pragma once

#include <QString>

namespace TarnwickDirect {

/// Release notes as text alone: HTML loses its marks, its pictures and its links, and nothing is
/// fetched. Characters that turn or hide text are left out, and what is longer than 20,000
/// characters ends in an ellipsis. Main thread only.
QString plainReleaseNotes(const QString& notes);

}  // namespace TarnwickDirect
