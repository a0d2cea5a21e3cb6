#include "Picker/PickerFixture.h"

#include "Tarnwick/Model/Settings.h"

namespace Tarnwick {

using PullRequestKit::RepositorySummary;

RepositorySummary repositoryOf(
    std::string fullName,
    std::optional<std::string> visibility,
    std::optional<std::string> language)
{
    RepositorySummary repository;
    repository.fullName = std::move(fullName);
    repository.visibility = std::move(visibility);
    repository.language = std::move(language);
    return repository;
}

std::vector<RepositorySummary> PickerTest::someRepositories()
{
    return {
        repositoryOf("northmere/quay", "internal", "TypeScript"),
        repositoryOf("fenland/harbour-10", "private", "C++"),
        repositoryOf("fenland/capstan", "public", "Rust"),
        repositoryOf("northmere/beacon", "public", "Go"),
        repositoryOf("fenland/harbour-9", "private", "C++"),
        repositoryOf("northmere/almanac")};
}

void PickerTest::open(
    const std::vector<RepositorySummary>& repositories, const std::set<std::string>& selected)
{
    CachedPullRequestSnapshot snapshot;
    snapshot.repositories = repositories;
    cache().save(snapshot);
    SettingsStore(*defaults).setSelectedRepositories(selected);
    start();
    picker = std::make_unique<RepositoryPicker>(*model);
    QObject::connect(picker.get(), &RepositoryPicker::done, picker.get(), [this] { ++doneCount; });
    picker->resize(420, 600);
    picker->show();
    picker->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(picker.get()));
}

std::vector<std::string> PickerTest::rows() const
{
    std::vector<std::string> texts;
    const QAbstractItemModel& listed = *list()->model();
    for (int number = 0; number < listed.rowCount(); ++number) {
        const QModelIndex index = listed.index(number, 0);
        const PickerRow& row = static_cast<const PickerListModel&>(listed).row(number);
        const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        const std::string name = index.data().toString().toStdString();
        texts.push_back(row.isOwner() ? name + ":" : name + (isTicked ? "+" : ""));
    }
    return texts;
}

QModelIndex PickerTest::row(const char* name) const
{
    const QAbstractItemModel& listed = *list()->model();
    for (int number = 0; number < listed.rowCount(); ++number) {
        if (listed.index(number, 0).data().toString() == QLatin1String(name)) {
            return listed.index(number, 0);
        }
    }
    return {};
}

void PickerTest::click(const QPoint& position) const
{
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, position);
}

}  // namespace Tarnwick
