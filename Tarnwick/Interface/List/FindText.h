#pragma once

#include <QString>
#include <QStringList>

namespace Tarnwick {

/// A text as searching compares it: without case and accents. Safe from any thread.
QString folded(const QString& text);

/// The words of what somebody types to find something, folded. Safe from any thread.
QStringList foldedWords(const QString& text);

/// Whether each of the words is in the text; both are folded. Safe from any thread.
bool holdsAll(const QString& foldedText, const QStringList& foldedWords);

}  // namespace Tarnwick
