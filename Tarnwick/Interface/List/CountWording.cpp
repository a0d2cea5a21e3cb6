#include "Tarnwick/Interface/List/CountWording.h"

#include "Tarnwick/Interface/List/Names.h"

namespace Tarnwick::CountWording {
namespace {

using namespace PullRequestKit;

constexpr qsizetype mostNames = 6;

QString isolated(const std::string& name)
{
    return Names::isolated(Names::shown(name));
}

QString isolated(const SharedText& name)
{
    return isolated(name.text());
}

void addNames(QStringList& lines, const QString& heading, QStringList names)
{
    names.removeAll(QString());
    if (names.isEmpty()) {
        return;
    }
    QString line = heading + QStringList(names.mid(0, mostNames)).join(QStringLiteral(", "));
    if (names.size() > mostNames) {
        line += QStringLiteral(" and %1 more").arg(names.size() - mostNames);
    }
    lines.append(line);
}

template<typename Name>
QStringList isolated(const std::vector<Name>& names)
{
    QStringList shown;
    for (const Name& name : names) {
        shown.append(isolated(name));
    }
    return shown;
}

QStringList authors(const PullRequestDetails& details, ReviewVerdict verdict)
{
    QStringList shown;
    for (const LatestReview& review : details.reviews) {
        if (review.verdict == verdict) {
            shown.append(isolated(review.author));
        }
    }
    return shown;
}

QStringList requested(const PullRequestDetails& details)
{
    QStringList shown = isolated(details.requestedUsers);
    for (const std::string& team : details.requestedTeams) {
        if (const QString name = isolated(team); !name.isEmpty()) {
            shown.append(QStringLiteral("team ") + name);
        }
    }
    return shown;
}

void addLimit(QStringList& lines, std::optional<std::int64_t> limit, const QString& things)
{
    if (limit) {
        lines.append(QStringLiteral("The first %1 %2; there may be more").arg(*limit).arg(things));
    }
}

}  // namespace

QStringList reviewLines(const PullRequestDetails& details)
{
    QStringList lines;
    addNames(
        lines,
        QStringLiteral("Changes requested: "),
        authors(details, ReviewVerdict::changesRequested));
    addNames(lines, QStringLiteral("Approved: "), authors(details, ReviewVerdict::approved));
    addNames(lines, QStringLiteral("Commented: "), authors(details, ReviewVerdict::commented));
    addNames(lines, QStringLiteral("Dismissed: "), authors(details, ReviewVerdict::dismissed));
    addNames(lines, QStringLiteral("Waiting for: "), requested(details));
    addLimit(lines, details.reviewLimit, QStringLiteral("reviews"));
    addLimit(lines, details.requestLimit, QStringLiteral("review requests"));
    return lines;
}

QStringList checkLines(const ProgressCount& checks, const PullRequestDetails& details)
{
    QStringList lines;
    if (checks.total > 0) {
        lines.append(QStringLiteral("%1 of %2 passed").arg(checks.completed).arg(checks.total));
    }
    addNames(lines, QStringLiteral("Failed: "), isolated(details.failedChecks));
    addNames(lines, QStringLiteral("Running: "), isolated(details.runningChecks));
    addLimit(lines, details.checkLimit, QStringLiteral("checks"));
    return lines;
}

}  // namespace Tarnwick::CountWording
