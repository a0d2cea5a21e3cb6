#include "Tarnwick/Interface/List/HeadingWording.h"

#include "PullRequestKit/TurnWording.h"

namespace Tarnwick::HeadingWording {

QString title(PullRequestKit::Whose whose)
{
    const std::string_view text = PullRequestKit::headingOf(whose);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString count(const GroupHeading& heading)
{
    return heading.rowCount == 0 ? QString() : QString::number(heading.earnedCount);
}

QString sentence(const GroupHeading& heading)
{
    if (heading.rowCount == 0) {
        return title(heading.whose);
    }
    const QString of = heading.earnedCount == heading.rowCount
                           ? QString()
                           : QStringLiteral(" of %1").arg(heading.rowCount);
    const QString plural = heading.rowCount == 1 ? QString() : QStringLiteral("s");
    return QStringLiteral("%1, %2%3 pull request%4")
        .arg(title(heading.whose))
        .arg(heading.earnedCount)
        .arg(of, plural);
}

}  // namespace Tarnwick::HeadingWording
