#include "Tarnwick/Interface/List/PullRequestListModel.h"

#include "Tarnwick/Interface/List/FindText.h"
#include "Tarnwick/Interface/List/HeadingWording.h"
#include "Tarnwick/Interface/List/RowTexts.h"
#include "Tarnwick/Interface/List/RowWording.h"
#include "Tarnwick/Interface/List/SinceWording.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

namespace Tarnwick {

using PullRequestKit::PullRequestID;

namespace {

/// The positions of identities in a list. Requires: the list outlives it.
template<typename Contents>
class Places {
public:
    explicit Places(const Contents& contents)
    {
        _places.reserve(contents.size());
        int place = 0;
        for (const auto& content : contents) {
            _places.emplace(&keyOf(content), place++);
        }
    }

    /// -1 if absent.
    int of(const PullRequestID& id) const
    {
        const auto found = _places.find(&id);
        return found == _places.end() ? -1 : found->second;
    }

private:
    static const PullRequestID& keyOf(const std::shared_ptr<RowContent>& content)
    {
        return content->row().id();
    }

    template<typename Row>
    static const PullRequestID& keyOf(const Row& row)
    {
        return row.key();
    }

    struct Hash {
        std::size_t operator()(const PullRequestID* id) const
        {
            // A cheap hash: the number alone distinguishes most rows.
            return std::hash<std::string>()(id->repository) * 31
                   + static_cast<std::size_t>(id->number);
        }
    };

    struct Equal {
        bool operator()(const PullRequestID* left, const PullRequestID* right) const
        {
            return *left == *right;
        }
    };

    std::unordered_map<const PullRequestID*, int, Hash, Equal> _places;
};

/// An identity without a repository, which no pull request has.
const PullRequestID& headingKey(PullRequestKit::Whose whose)
{
    using PullRequestKit::Whose;
    static const std::map<Whose, PullRequestID> keys = [] {
        std::map<Whose, PullRequestID> made;
        for (const Whose each : {Whose::you, Whose::ready, Whose::teams, Whose::others}) {
            made[each].number = static_cast<std::int64_t>(each);
        }
        return made;
    }();
    return keys.at(whose);
}

QVariant headingData(const GroupHeading& heading, int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return HeadingWording::title(heading.whose);
    case Qt::AccessibleTextRole:
        return HeadingWording::sentence(heading);
    default:
        return {};
    }
}

}  // namespace

const PullRequestID& PullRequestListModel::ShownRow::key() const
{
    return content != nullptr ? content->row().id() : headingKey(heading.whose);
}

PullRequestListModel::PullRequestListModel(Now now, QObject* parent)
    : RowListModel(parent)
    , _now(std::move(now))
{}

void PullRequestListModel::setRows(std::vector<ListedRow> rows)
{
    _all = contentsOf(rows);
    _countWidths = {};
    for (std::size_t place = 0; place < rows.size(); ++place) {
        // Releases the previous list's row; the prepared texts stay.
        _all[place]->replace(std::move(rows[place]));
        const CountWidths widths = _all[place]->countWidths();
        _countWidths.reviews = std::max(_countWidths.reviews, widths.reviews);
        _countWidths.checks = std::max(_countWidths.checks, widths.checks);
    }
    show(found());
}

/// Reuses the contents of unchanged rows.
PullRequestListModel::Contents PullRequestListModel::contentsOf(
    const std::vector<ListedRow>& rows) const
{
    const Places<Contents> known(_all);
    Contents contents;
    contents.reserve(rows.size());
    for (const ListedRow& row : rows) {
        const int place = known.of(row.row->id());
        const auto& old = place < 0 ? nullptr : _all[static_cast<std::size_t>(place)];
        contents.push_back(
            old != nullptr && old->listed() == row ? old : std::make_shared<RowContent>(row));
    }
    return contents;
}

void PullRequestListModel::setFindText(const QString& text)
{
    QStringList words = foldedWords(text);
    if (words != _words) {
        _words = std::move(words);
        show(found());
    }
}

std::vector<PullRequestListModel::ShownRow> PullRequestListModel::found() const
{
    constexpr std::int64_t notFound = -1;
    std::vector<ShownRow> rows;
    rows.reserve(_all.size());
    std::vector<std::int64_t> depths;  // The shown depths of the row and its ancestors.
    for (const auto& content : _all) {
        const std::int64_t depth = content->row().depth;
        if (_words.isEmpty()) {
            rows.push_back({content, depth});
            continue;
        }
        depths.resize(static_cast<std::size_t>(depth), notFound);
        const std::int64_t parent = depths.empty() ? notFound : depths.back();
        const bool isHit = content->matches(_words);
        depths.push_back(isHit ? parent + 1 : notFound);
        if (isHit) {
            rows.push_back({content, depths.back()});
        }
    }
    return underHeadings(std::move(rows));
}

std::vector<PullRequestListModel::ShownRow> PullRequestListModel::underHeadings(
    std::vector<ShownRow> rows) const
{
    if (rows.empty() || rows.front().content->listed().turn == nullptr) {
        return rows;
    }
    std::vector<ShownRow> grouped;
    grouped.reserve(rows.size() + 4);
    std::size_t heading = 0;
    for (ShownRow& row : rows) {
        const RowContent& content = *row.content;
        const PullRequestKit::Whose whose = content.listed().heading;
        if (grouped.empty() || grouped[heading].heading.whose != whose) {
            heading = grouped.size();
            grouped.push_back({.content = nullptr, .depth = 0, .heading = {.whose = whose}});
        }
        grouped[heading].heading.rowCount += content.isDimmed() ? 0 : 1;
        grouped[heading].heading.earnedCount += content.earnsHeading() ? 1 : 0;
        grouped.push_back(std::move(row));
    }
    return grouped;
}

void PullRequestListModel::show(const std::vector<ShownRow>& wanted)
{
    Q_EMIT listAboutToChange();
    const Places<std::vector<ShownRow>> places(wanted);
    std::vector<int> targets;
    targets.reserve(_shown.size());
    std::ranges::transform(_shown, std::back_inserter(targets), [&](const ShownRow& row) {
        return places.of(row.key());
    });
    takeIn(_shown, std::move(targets), wanted);
    _headingRows.clear();
    for (std::size_t row = 0; row < wanted.size(); ++row) {
        if (wanted[row].content == nullptr) {
            _headingRows.push_back(static_cast<int>(row));
        }
    }
    replaceRows(wanted);
    Q_EMIT listChanged();
}

void PullRequestListModel::replaceRows(const std::vector<ShownRow>& wanted)
{
    std::vector<int> changed;
    for (std::size_t row = 0; row < wanted.size(); ++row) {
        if (_shown[row] != wanted[row]) {
            _shown[row] = wanted[row];
            changed.push_back(static_cast<int>(row));
        }
    }
    announceData(changed);
}

QModelIndex PullRequestListModel::indexOf(const PullRequestID& id) const
{
    const auto found =
        std::ranges::find_if(_shown, [&](const ShownRow& row) { return row.key() == id; });
    return found == _shown.end() ? QModelIndex() : index(static_cast<int>(found - _shown.begin()));
}

int PullRequestListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_shown.size());
}

int PullRequestListModel::countInSight() const
{
    return static_cast<int>(std::ranges::count_if(_shown, [](const ShownRow& row) {
        return row.content != nullptr && !row.content->isDimmed();
    }));
}

int PullRequestListModel::firstPullRequest() const
{
    const auto found =
        std::ranges::find_if(_shown, [](const ShownRow& row) { return row.content != nullptr; });
    return found == _shown.end() ? -1 : static_cast<int>(found - _shown.begin());
}

Qt::ItemFlags PullRequestListModel::flags(const QModelIndex& index) const
{
    const bool isOfHeading = index.isValid() && isHeading(index.row());
    return isOfHeading ? Qt::ItemIsEnabled : RowListModel::flags(index);
}

QVariant PullRequestListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    if (isHeading(index.row())) {
        return headingData(heading(index.row()), role);
    }
    const RowContent& row = content(index);
    switch (role) {
    case Qt::DisplayRole:
        return row.title();
    case Qt::AccessibleTextRole:
        return RowWording::accessibilityLabel(row.pullRequest());
    case Qt::AccessibleDescriptionRole: {
        const QString changed =
            row.hasChanged()
                ? SinceWording::spokenSentence(row.since(), now(), QTimeZone::systemTimeZone())
                : QString();
        const QString description = RowWording::accessibilityDescription(
            RowTexts::details(row, now()), changed, row.pullRequest(), row.details());
        return row.warning().isEmpty() ? description
                                       : row.warning() + QStringLiteral(". ") + description;
    }
    default:
        return {};
    }
}

}  // namespace Tarnwick
