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

/// The rows that the list shows: those it was given, or of them the ones that match what the user
/// wants to find. Where rows have turns, a row of its own stands before each group as its heading;
/// while something is found, only hits count in it. A new list is taken in as the removals, moves,
/// insertions and changes that lead to it, by the identity of the pull requests and headings. Main
/// thread only.
///
/// `Qt::DisplayRole` is the title or the heading, `Qt::AccessibleTextRole` the row as one sentence,
/// and `Qt::AccessibleDescriptionRole` the line of details and what the counts consist of.
class PullRequestListModel final : public RowListModel {
    Q_OBJECT

public:
    using Now = std::function<PullRequestKit::Date()>;

    /// `now` tells the current time, which ages are reckoned from.
    explicit PullRequestListModel(Now now, QObject* parent = nullptr);

    /// Requires: no two rows have the same pull request, and rows with the same heading follow each
    /// other.
    void setRows(std::vector<ListedRow> rows);

    /// Shows the rows that hold every word of the text; all for a text without words. A hit whose
    /// parent is none stands without indentation.
    void setFindText(const QString& text);

    /// How many pull requests there are, found or not.
    int totalCount() const { return static_cast<int>(_all.size()); }

    /// How many of them are shown.
    int foundCount() const { return static_cast<int>(_shown.size() - _headingRows.size()); }

    /// How many of those are not dimmed.
    int countInSight() const;

    const std::vector<int>& headingRows() const override { return _headingRows; }

    bool isHeading(int row) const { return shown(row).content == nullptr; }

    /// Requires: the row is one.
    const GroupHeading& heading(int row) const { return shown(row).heading; }

    /// The first row that is no heading; -1 where there is none.
    int firstPullRequest() const;

    /// The words that are to be found, folded.
    const QStringList& findWords() const { return _words; }

    bool isFinding() const { return !_words.isEmpty(); }

    /// Of all rows, found or not, so that columns stand still while the user types.
    CountWidths countWidths() const { return _countWidths; }

    PullRequestKit::Date now() const { return _now(); }

    /// Requires: the row is no heading.
    const RowContent& content(int row) const { return *shown(row).content; }

    /// How far the row is indented; less than in its stack while its parents are not found.
    std::int64_t depth(int row) const { return shown(row).depth; }

    const RowContent& content(const QModelIndex& index) const { return content(index.row()); }

    /// Invalid when the pull request is not among the rows shown.
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
