#include "Tarnwick/Interface/Picker/PickerListModel.h"

#include "Tarnwick/Interface/List/FindText.h"
#include "Tarnwick/Interface/Picker/PickerWording.h"
#include "Tarnwick/Interface/Picker/RepositoryGroups.h"

#include <algorithm>
#include <unordered_set>

namespace Tarnwick {
namespace {

using PullRequestKit::RepositorySummary;

const void* identityOf(const PickerRow& row)
{
    return row.isOwner() ? static_cast<const void*>(row.owner) : row.repository;
}

/// The new position of each old row, or -1.
std::vector<int> placesIn(const std::vector<PickerRow>& after, const std::vector<PickerRow>& before)
{
    std::unordered_map<const void*, int> places;
    places.reserve(after.size());
    for (std::size_t place = 0; place < after.size(); ++place) {
        places.emplace(identityOf(after[place]), static_cast<int>(place));
    }
    std::vector<int> targets;
    targets.reserve(before.size());
    for (const PickerRow& row : before) {
        const auto found = places.find(identityOf(row));
        targets.push_back(found == places.end() ? -1 : found->second);
    }
    return targets;
}

Qt::CheckState checkStateOf(const RepositoryOwnerLabel& owner)
{
    if (owner.allSelected()) {
        return Qt::Checked;
    }
    return owner.selectedCount > 0 ? Qt::PartiallyChecked : Qt::Unchecked;
}

QVariant ownerData(const RepositoryOwnerLabel& owner, int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return owner.owner;
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1, %2").arg(
            owner.owner, PickerWording::ownerButton(owner.allSelected()));
    case Qt::CheckStateRole:
        return static_cast<int>(checkStateOf(owner));
    default:
        return {};
    }
}

QVariant repositoryData(const RepositoryLabel& repository, int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return repository.name;
    case Qt::AccessibleTextRole:
        return PickerWording::sentence(repository.repository);
    case Qt::CheckStateRole:
        return static_cast<int>(repository.isSelected ? Qt::Checked : Qt::Unchecked);
    default:
        return {};
    }
}

template<typename Map, typename Names>
void keepOnly(Map& map, const Names& names)
{
    std::erase_if(map, [&](const auto& entry) { return !names.contains(entry.first); });
}

}  // namespace

PickerListModel::PickerListModel(QObject* parent)
    : RowListModel(parent)
{}

void PickerListModel::setRepositories(const std::vector<RepositorySummary>& repositories)
{
    std::unordered_set<std::string> names;
    std::unordered_set<std::string> owners;
    std::vector<PickerRow> all;
    all.reserve(repositories.size());
    for (const RepositoryGroup& group : repositoryGroups(repositories)) {
        owners.insert(group.owner);
        RepositoryOwnerLabel& owner = _owners[group.owner];
        owner.owner = QString::fromStdString(group.owner);
        all.push_back({.owner = &owner, .repository = nullptr});
        for (const RepositorySummary& summary : group.repositories) {
            if (!names.insert(summary.fullName).second) {
                continue;
            }
            const auto [entry, isNew] = _repositories.try_emplace(summary.fullName, summary);
            RepositoryLabel& repository = entry->second;
            if (!isNew && repository.repository != summary) {
                repository = RepositoryLabel(summary);
                repository.isChanged = true;
            }
            repository.isSelected = _selected.contains(summary.fullName);
            all.push_back({.owner = &owner, .repository = &repository});
        }
    }
    _all = std::move(all);
    show(wantedRows());
    keepOnly(_repositories, names);
    keepOnly(_owners, owners);
}

void PickerListModel::setSelection(const std::set<std::string>& selected)
{
    _selected = selected;
    for (auto& [name, repository] : _repositories) {
        const bool isSelected = selected.contains(name);
        repository.isChanged = repository.isChanged || repository.isSelected != isSelected;
        repository.isSelected = isSelected;
    }
    countSelected();
    announceChanges();
}

void PickerListModel::setFindText(const QString& text)
{
    const QStringList words = foldedWords(text);
    if (_words != words) {
        _words = words;
        show(wantedRows());
    }
}

std::vector<PickerRow> PickerListModel::wantedRows() const
{
    std::vector<PickerRow> wanted;
    wanted.reserve(_all.size());
    for (const PickerRow& row : _all) {
        if (!row.isOwner() && !holdsAll(row.repository->searchText, _words)) {
            continue;
        }
        // Drops an owner without matching repositories.
        if (row.isOwner() && !wanted.empty() && wanted.back().isOwner()) {
            wanted.pop_back();
        }
        wanted.push_back(row);
    }
    if (!wanted.empty() && wanted.back().isOwner()) {
        wanted.pop_back();
    }
    return wanted;
}

void PickerListModel::show(const std::vector<PickerRow>& wanted)
{
    Q_EMIT listAboutToChange();
    takeIn(_shown, placesIn(wanted, _shown), wanted);
    _ownerRows.clear();
    for (std::size_t place = 0; place < _shown.size(); ++place) {
        if (_shown[place].isOwner()) {
            _ownerRows.push_back(static_cast<int>(place));
        }
    }
    countSelected();
    announceChanges();
    Q_EMIT listChanged();
}

void PickerListModel::countSelected()
{
    RepositoryOwnerLabel counted;
    for (std::size_t place = 0; place < _shown.size(); ++place) {
        const PickerRow& row = _shown[place];
        if (!row.isOwner()) {
            ++counted.shownCount;
            counted.selectedCount += row.repository->isSelected ? 1 : 0;
        }
        const bool isLast = place + 1 == _shown.size() || _shown[place + 1].isOwner();
        if (isLast) {
            RepositoryOwnerLabel& owner = *row.owner;
            owner.isChanged = owner.isChanged || owner.shownCount != counted.shownCount
                              || owner.selectedCount != counted.selectedCount;
            owner.shownCount = counted.shownCount;
            owner.selectedCount = counted.selectedCount;
            counted = {};
        }
    }
}

void PickerListModel::announceChanges()
{
    std::vector<int> changed;
    for (std::size_t place = 0; place < _shown.size(); ++place) {
        const PickerRow& row = _shown[place];
        bool& isChanged = row.isOwner() ? row.owner->isChanged : row.repository->isChanged;
        if (isChanged) {
            changed.push_back(static_cast<int>(place));
            isChanged = false;
        }
    }
    announceData(changed);
}

std::vector<std::string> PickerListModel::shownNames(const RepositoryOwnerLabel* owner) const
{
    std::vector<std::string> names;
    for (const PickerRow& row : _shown) {
        if (!row.isOwner() && (owner == nullptr || row.owner == owner)) {
            names.push_back(row.repository->repository.fullName);
        }
    }
    return names;
}

bool PickerListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole) {
        return false;
    }
    const PickerRow& wanted = row(index.row());
    const bool selected = value.toInt() == Qt::Checked;
    std::vector<std::string> names;
    if (wanted.isOwner()) {
        names = shownNames(wanted.owner);
        Q_EMIT selectionRequested(names, selected);
    } else {
        names = {wanted.repository->repository.fullName};
        if (wanted.repository->isSelected != selected) {
            Q_EMIT toggleRequested(names.front());
        }
    }
    return std::ranges::all_of(
        names, [&](const std::string& name) { return _selected.contains(name) == selected; });
}

QVariant PickerListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const PickerRow& wanted = row(index.row());
    return wanted.isOwner() ? ownerData(*wanted.owner, role)
                            : repositoryData(*wanted.repository, role);
}

int PickerListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_shown.size());
}

Qt::ItemFlags PickerListModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
           | Qt::ItemNeverHasChildren;
}

}  // namespace Tarnwick
