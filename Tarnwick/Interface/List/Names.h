#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace Tarnwick {

/// Other people's names, such as those of reviewers, teams and checks, made fit to stand in a line.
/// Safe from any thread.
namespace Names {

/// The name as one line of letters that show, cut at so many of them: a text as wide as the screen
/// hides what it explains. Empty where nothing is left.
QString shown(const std::string& name, qsizetype mostLetters = 60);

/// Those of the names of which something is left.
QStringList shown(const std::vector<std::string>& names);

/// The name as a part of a menu item: of 24 letters at most, none of which marks a key.
QString inMenu(const std::string& name);

/// A text that cannot turn the direction of what stands around it; an empty one stays empty.
QString isolated(const QString& text);

}  // namespace Names

}  // namespace Tarnwick
