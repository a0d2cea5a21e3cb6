#pragma once

#include "Tarnwick/Interface/List/RowListModel.h"
#include "Tarnwick/Interface/Picker/PickerRow.h"

#include <QStringList>

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace Tarnwick {

/// The repositories that can be chosen, each owner's label before its repositories. What changes is
/// announced row by row. It keeps no selection of its own: a changed check box is a request, and
/// `setSelection` tells what has come of it. Main thread only.
///
/// `Qt::DisplayRole` is the owner or the repository's name, `Qt::AccessibleTextRole` the row in
/// words, `Qt::CheckStateRole` whether the repository, all of the owner's or some are selected.
class PickerListModel final : public RowListModel {
    Q_OBJECT

public:
    explicit PickerListModel(QObject* parent = nullptr);

    /// Of repositories with the same full name the first counts.
    void setRepositories(const std::vector<PullRequestKit::RepositorySummary>& repositories);

    /// Full names; those that are not listed do not matter.
    void setSelection(const std::set<std::string>& selected);

    /// Lists the repositories whose full names hold every word of the text, letter case aside, and
    /// of the owners those that have one. A text without words lists all.
    void setFindText(const QString& text);

    bool isFinding() const { return !_words.isEmpty(); }

    /// Whether there are no repositories at all, listed or not.
    bool isEmpty() const { return _all.empty(); }

    const PickerRow& row(int number) const { return _shown[static_cast<std::size_t>(number)]; }

    const std::vector<int>& headingRows() const override { return _ownerRows; }

    /// The full names of the repositories that are listed; of this owner alone, if one is given.
    std::vector<std::string> shownNames(const RepositoryOwnerLabel* owner = nullptr) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// Asks for the check state. True when it is the row's afterwards.
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

    // Nodes of these maps stay where they are while others come and go, and rows point to them.
    std::unordered_map<std::string, RepositoryLabel> _repositories;
    std::unordered_map<std::string, RepositoryOwnerLabel> _owners;
    std::vector<PickerRow> _all;
    std::vector<PickerRow> _shown;
    std::vector<int> _ownerRows;
    std::set<std::string> _selected;
    QStringList _words;
};

}  // namespace Tarnwick
