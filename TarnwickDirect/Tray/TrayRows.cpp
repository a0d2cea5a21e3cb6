#include "TarnwickDirect/Tray/TrayRows.h"

#include "PullRequestKit/TurnWording.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <QTextBoundaryFinder>

namespace TarnwickDirect {

using namespace PullRequestKit;

namespace {

/// Limits the width of the menu.
constexpr int longestTitle = 40;
constexpr int longestReason = 40;

/// At most this many visible characters, without control characters.
QString shortened(const std::string& text, int most)
{
    QString line = QString::fromStdString(singleLine(text)).simplified();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, line);
    qsizetype end = 0;
    for (int count = 0; count < most; ++count) {
        end = finder.toNextBoundary();
        if (end < 0) {
            return line;
        }
    }
    return end == line.size() ? line : line.left(end).trimmed() + QStringLiteral("…");
}

/// In lower case, because it is in the middle of a line.
QString lowered(QString reason)
{
    if (!reason.isEmpty()) {
        reason[0] = reason.at(0).toLower();
    }
    return reason;
}

QString textOf(const PullRequest& pullRequest, const Turn& turn)
{
    const QString text = QStringLiteral("#%1 %2 — %3")
                             .arg(pullRequest.id.number)
                             .arg(
                                 shortened(pullRequest.title, longestTitle),
                                 lowered(shortened(reasonText(turn), longestReason)));
    // A single "&" would mark a mnemonic.
    return QString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

std::vector<TrayRow> trayRows(
    std::span<const PullRequestRow> rows, std::span<const Turn> turns, std::size_t most)
{
    std::vector<TrayRow> found;
    for (const Whose whose : {Whose::you, Whose::ready, Whose::teams}) {
        for (std::size_t index = 0; index < rows.size() && found.size() < most; ++index) {
            if (turns[index].whose == whose) {
                const PullRequest& pullRequest = rows[index].pullRequest;
                found.push_back({textOf(pullRequest, turns[index]), pullRequest.id});
            }
        }
    }
    return found;
}

}  // namespace TarnwickDirect
