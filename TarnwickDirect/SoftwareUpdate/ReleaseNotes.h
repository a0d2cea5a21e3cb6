#pragma once

#include <QString>

namespace TarnwickDirect {

/// Release notes as plain text, without markup, pictures and links; nothing is fetched. Invisible
/// characters are removed. Truncated to 20,000 characters. Main thread only.
QString plainReleaseNotes(const QString& notes);

}  // namespace TarnwickDirect
