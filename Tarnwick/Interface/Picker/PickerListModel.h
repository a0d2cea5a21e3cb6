#pragma once

#include "Tarnwick/Interface/List/RowListModel.h"
#include "Tarnwick/Interface/Picker/PickerRow.h"

#include <QStringList>

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace Tarnwick {

/// The available repositories below their owners. Changes are applied row by row. Setting a check
/// state only emits a request; `setSelection` sets the result. Main thread only.
/// `Qt::DisplayRole` is the owner or the repository's name, `Qt::AccessibleTextRole` the row in
/// words, and `Qt::CheckStateRole` whether all, some or none are selected.
class PickerListModel final : public RowListModel {
    Q_OBJECT

public:
    explicit PickerListModel(QObject* parent = nullptr);

    /// Of duplicates the first counts.
    void setRepositories(const std::vector<PullRequestKit::RepositorySummary>& repositories);

    /// Full names; unknown ones are ignored.
    void setSelection(const std::set<std::string>& selected);

    /// Lists the repositories whose full names contain every word of the text, ignoring case, and
    /// their owners. Without words all are listed.
    void setFindText(const QString& text);

    bool isFinding() const { return !_words.isEmpty(); }

    /// Whether there are no repositories at all.
    bool isEmpty() const { return _all.empty(); }

    const PickerRow& row(int number) const { return _shown[static_cast<std::size_t>(number)]; }

    const std::vector<int>& headingRows() const override { return _ownerRows; }

    /// The full names of the listed repositories, optionally of one owner only.
    std::vector<std::string> shownNames(const RepositoryOwnerLabel* owner = nullptr) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// Requests the check state. Returns whether it took effect.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    void toggleRequested(const std::string& name);
    void selectionRequested(const std::vector<std::string>& names, bool selected);

private:
    std::vector<PickerRow> wantedRows() const;
    void show(const std::vector<PickerRow>& wanted);
    void countSelected();
    void announceChanges();

    // Rows point into these maps, whose nodes do not move.
    std::unordered_map<std::string, RepositoryLabel> _repositories;
    std::unordered_map<std::string, RepositoryOwnerLabel> _owners;
    std::vector<PickerRow> _all;
    std::vector<PickerRow> _shown;
    std::vector<int> _ownerRows;
    std::set<std::string> _selected;
    QStringList _words;
};

}  // namespace Tarnwick
