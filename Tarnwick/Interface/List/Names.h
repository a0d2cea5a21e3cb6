#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace Tarnwick {

/// Makes untrusted names of reviewers, teams and checks safe to show. Safe from any thread.
namespace Names {

/// One line without invisible characters, truncated to this many letters. May be empty.
QString shown(const std::string& name, qsizetype mostLetters = 60);

/// Without names that become empty.
QStringList shown(const std::vector<std::string>& names);

/// The name for a menu item: at most 24 letters, without mnemonics.
QString inMenu(const std::string& name);

/// The text, unable to change the direction of surrounding text. Empty stays empty.
QString isolated(const QString& text);

}  // namespace Names

}  // namespace Tarnwick
