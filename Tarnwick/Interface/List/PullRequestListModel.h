#pragma once

#include "Tarnwick/Interface/List/GroupHeading.h"
#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/Interface/List/RowListModel.h"

#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace Tarnwick {

/// The rows of the list: all rows, or those that match the search text. Rows with turns are
/// preceded by a heading per group; during a search it counts hits only. A new list is applied as
/// removals, moves, insertions and changes by identity. Main thread only.
/// `Qt::DisplayRole` is the title or the heading, `Qt::AccessibleTextRole` the row as one sentence,
/// and `Qt::AccessibleDescriptionRole` the line of details and the composition of the counts.
class PullRequestListModel final : public RowListModel {
    Q_OBJECT

public:
    using Now = std::function<PullRequestKit::Date()>;

    /// `now` is the clock that ages are relative to.
    explicit PullRequestListModel(Now now, QObject* parent = nullptr);

    /// Requires: no duplicate pull requests, and rows with the same heading are adjacent.
    void setRows(std::vector<ListedRow> rows);

    /// Shows the rows that contain every word of the text, or all rows without words. A hit whose
    /// parents are hidden is not indented.
    void setFindText(const QString& text);

    /// The number of pull requests, matching or not.
    int totalCount() const { return static_cast<int>(_all.size()); }

    /// The number of pull requests shown.
    int foundCount() const { return static_cast<int>(_shown.size() - _headingRows.size()); }

    /// The number of those that are not dimmed.
    int countInSight() const;

    const std::vector<int>& headingRows() const override { return _headingRows; }

    bool isHeading(int row) const { return shown(row).content == nullptr; }

    /// Requires: `isHeading(row)`.
    const GroupHeading& heading(int row) const { return shown(row).heading; }

    /// The first row that is not a heading, or -1.
    int firstPullRequest() const;

    /// The words of the search, folded.
    const QStringList& findWords() const { return _words; }

    bool isFinding() const { return !_words.isEmpty(); }

    /// Of all rows, so that columns do not move during a search.
    CountWidths countWidths() const { return _countWidths; }

    PullRequestKit::Date now() const { return _now(); }

    /// Requires: the row is not a heading.
    const RowContent& content(int row) const { return *shown(row).content; }

    /// The indentation, which is reduced while ancestors are hidden.
    std::int64_t depth(int row) const { return shown(row).depth; }

    const RowContent& content(const QModelIndex& index) const { return content(index.row()); }

    /// Invalid if the pull request is not shown.
    QModelIndex indexOf(const PullRequestKit::PullRequestID& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    using Contents = std::vector<std::shared_ptr<RowContent>>;

    struct ShownRow {
        std::shared_ptr<RowContent> content;  ///< Null for a heading.
        std::int64_t depth = 0;
        GroupHeading heading = {};

        const PullRequestKit::PullRequestID& key() const;

        bool operator==(const ShownRow&) const = default;
    };

    const ShownRow& shown(int row) const { return _shown[static_cast<std::size_t>(row)]; }

    Contents contentsOf(const std::vector<ListedRow>& rows) const;
    void show(const std::vector<ShownRow>& wanted);
    std::vector<ShownRow> found() const;
    std::vector<ShownRow> underHeadings(std::vector<ShownRow> rows) const;
    void replaceRows(const std::vector<ShownRow>& wanted);

    Now _now;
    Contents _all;
    std::vector<ShownRow> _shown;
    std::vector<int> _headingRows;
    QStringList _words;
    CountWidths _countWidths;
};

}  // namespace Tarnwick
