#include "Tarnwick/Interface/Picker/PickerWording.h"

#include <QStringList>

namespace Tarnwick::PickerWording {
namespace {

using PullRequestKit::RepositorySummary;

QString textOf(const std::optional<std::string>& text)
{
    return text ? QString::fromStdString(*text) : QString();
}

QStringList detailsOf(const RepositorySummary& repository)
{
    QStringList details{visibility(repository)};
    if (const QString language = textOf(repository.language); !language.isEmpty()) {
        details.append(language);
    }
    if (repository.isArchived) {
        details.append(QStringLiteral("Archived"));
    }
    return details;
}

}  // namespace

bool isPrivate(const RepositorySummary& repository)
{
    return textOf(repository.visibility).toLower() == QLatin1String("private");
}

QString visibility(const RepositorySummary& repository)
{
    const QString text = textOf(repository.visibility).toLower();
    if (text.isEmpty()) {
        return QStringLiteral("Unknown visibility");
    }
    return text.left(1).toUpper() + text.mid(1);
}

QString details(const RepositorySummary& repository)
{
    return detailsOf(repository).join(QStringLiteral(" · "));
}

QString sentence(const RepositorySummary& repository)
{
    const QStringList parts =
        QStringList(QString::fromStdString(repository.fullName)) + detailsOf(repository);
    return parts.join(QStringLiteral(", "));
}

QString selectedCount(std::size_t count)
{
    return QStringLiteral("%1 selected").arg(count);
}

QString ownerButton(bool isAllSelected)
{
    return isAllSelected ? QStringLiteral("Unselect All") : QStringLiteral("Select All");
}

DirectoryNote directoryNote(const QString& directory)
{
    QString shown = directory.isEmpty() ? QStringLiteral("<project directory>") : directory;
    while (shown.size() > 1 && shown.endsWith(u'/')) {
        shown.chop(1);
    }
    if (shown == QLatin1String("/")) {
        shown.clear();
    }
    return {
        .before = QStringLiteral("Repositories open from "),
        .directory = shown,
        .after = QStringLiteral("/<repository>.")};
}

DirectoryNote missingNote(const QString& directory)
{
    return {
        .before = QStringLiteral("The folder "),
        .directory = directory.trimmed(),
        .after = QStringLiteral(" does not exist.")};
}

}  // namespace Tarnwick::PickerWording
