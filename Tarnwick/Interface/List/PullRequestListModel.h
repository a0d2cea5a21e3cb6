#pragma once

#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/Interface/List/RowListModel.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace Tarnwick {

/// The rows that the list shows: those it was given, or of them the ones that match what the user
/// wants to find. A new list is taken in as the removals, moves, insertions and changes that lead
/// to it, by the identity of the pull requests. Main thread only.
///
/// `Qt::DisplayRole` is the title, `Qt::AccessibleTextRole` the row as one sentence, and
/// `Qt::AccessibleDescriptionRole` the line of details and what the counts consist of.
class PullRequestListModel final : public RowListModel {
    Q_OBJECT

public:
    using Now = std::function<PullRequestKit::Date()>;

    /// `now` tells the current time, which ages are reckoned from.
    explicit PullRequestListModel(Now now, QObject* parent = nullptr);

    /// Requires: no two rows have the same pull request.
    void setRows(std::vector<ListedRow> rows);

    /// Shows the rows that hold every word of the text; all for a text without words.
    void setFindText(const QString& text);

    /// How many rows there are, found or not.
    int totalCount() const { return static_cast<int>(_all.size()); }

    /// How many of the rows shown are not dimmed.
    int countInSight() const;

    bool isFinding() const { return !_words.isEmpty(); }

    /// Of all rows, found or not, so that columns stand still while the user types.
    CountWidths countWidths() const { return _countWidths; }

    PullRequestKit::Date now() const { return _now(); }

    const RowContent& content(int row) const { return *_shown[static_cast<std::size_t>(row)]; }

    const RowContent& content(const QModelIndex& index) const { return content(index.row()); }

    /// Invalid when the pull request is not among the rows shown.
    QModelIndex indexOf(const PullRequestKit::PullRequestID& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

Q_SIGNALS:
    /// Around all the changes that one new list or one text to find brings.
    void listAboutToChange();
    void listChanged();

private:
    using Contents = std::vector<std::shared_ptr<RowContent>>;

    Contents contentsOf(const std::vector<ListedRow>& rows) const;
    void show(const Contents& contents);
    Contents found() const;
    void replaceContents(const Contents& wanted);

    Now _now;
    Contents _all;
    Contents _shown;
    QStringList _words;
    CountWidths _countWidths;
};

}  // namespace Tarnwick
