#include "Tarnwick/Interface/List/RowContent.h"

#include "Tarnwick/Interface/List/CountFigures.h"
#include "Tarnwick/Interface/List/FindText.h"
#include "Tarnwick/Interface/List/RowWording.h"
#include "Tarnwick/Interface/List/TitleLayout.h"

namespace Tarnwick {

namespace {

template<typename Value>
bool areEqual(const std::shared_ptr<const Value>& left, const std::shared_ptr<const Value>& right)
{
    return left == right || (left != nullptr && right != nullptr && *left == *right);
}

}  // namespace

bool ListedRow::operator==(const ListedRow& other) const
{
    return isVisited == other.isVisited && sight == other.sight && mutedUntil == other.mutedUntil
           && since == other.since && areEqual(row, other.row) && areEqual(details, other.details)
           && areEqual(turn, other.turn) && heading == other.heading;
}

RowContent::RowContent(ListedRow listed)
    : _listed(std::move(listed))
    , _title(titleText(pullRequest().title))
    , _warning(titleText(row().warning.value_or(std::string())))
    , _reviewLabel(QString::fromStdString(pullRequest().reviewCountLabel()))
    , _checkLabel(QString::fromStdString(pullRequest().checks.label()))
{}

RowWording::Reason RowContent::reason() const
{
    if (isDimmed()) {
        return {
            .words = RowWording::hiddenReason(
                _listed.sight, _listed.mutedUntil, QTimeZone::systemTimeZone())};
    }
    return _listed.turn != nullptr ? RowWording::turnReason(*_listed.turn) : RowWording::Reason{};
}

CountWidths RowContent::countWidths() const
{
    return {CountFigures::widthInEm(_reviewLabel), CountFigures::widthInEm(_checkLabel)};
}

QString RowContent::stateIconName() const
{
    const bool isStacked = row().depth >= 1 || row().hasChildren;
    return isStacked ? QStringLiteral("stack") : QStringLiteral("git-pull-request");
}

bool RowContent::matches(const QStringList& foldedWords) const
{
    if (_searchText.isEmpty()) {
        _searchText = searchText(pullRequest());
    }
    return holdsAll(_searchText, foldedWords);
}

}  // namespace Tarnwick
