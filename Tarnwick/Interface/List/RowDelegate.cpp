#include "Tarnwick/Interface/List/RowDelegate.h"

#include "Tarnwick/Interface/List/RowTexts.h"

#include <array>
#include <utility>

namespace Tarnwick {
namespace {

/// From top to bottom in stacking order.
constexpr std::array<std::pair<RowPart, QRect RowGeometry::*>, 9> partPlaces{{
    {RowPart::editorButton, &RowGeometry::editorHitArea},
    {RowPart::stateIcon, &RowGeometry::stateIcon},
    {RowPart::dot, &RowGeometry::dotHelp},
    {RowPart::conflict, &RowGeometry::conflict},
    {RowPart::review, &RowGeometry::review},
    {RowPart::check, &RowGeometry::check},
    {RowPart::title, &RowGeometry::title},
    {RowPart::warning, &RowGeometry::warning},
    {RowPart::details, &RowGeometry::details},
}};

}  // namespace

RowDelegate::RowDelegate(const PullRequestListModel& model)
    : _model(model)
    , _textScale(appearance().textScale())
    , _counts(model.countWidths())
    , _metrics(rowMetrics(0, _counts))
    , _titles(_metrics.title)
{}

void RowDelegate::setWidth(int width)
{
    const bool isOtherText = _textScale != appearance().textScale();
    if (_metrics.width == width && !isOtherText && _counts == _model.countWidths()) {
        return;
    }
    _textScale = appearance().textScale();
    _counts = _model.countWidths();
    _metrics = rowMetrics(width, _counts);
    if (isOtherText) {
        _titles = TitleCache(_metrics.title);
        _dimmedTitles.reset();
    }
}

TitleCache& RowDelegate::titles(const RowContent& content) const
{
    if (!content.isDimmed()) {
        return _titles;
    }
    return _dimmedTitles ? *_dimmedTitles : _dimmedTitles.emplace(_metrics.dimmedTitle);
}

RowShape RowDelegate::shape(int row) const
{
    const RowContent& content = _model.content(row);
    const std::int64_t depth = _model.depth(row);
    return {
        .depth = depth,
        .titleLines = titles(content).lineCount(content.title(), titleWidth(_metrics, depth)),
        .hasWarning = !content.warning().isEmpty()};
}

RowGeometry RowDelegate::geometry(int row) const
{
    return rowGeometry(_metrics, shape(row));
}

std::shared_ptr<const TitleLayout> RowDelegate::title(int row) const
{
    const RowContent& content = _model.content(row);
    return titles(content).layout(content.title(), titleWidth(_metrics, _model.depth(row)));
}

RowPart RowDelegate::partAt(int row, const QPoint& position) const
{
    const RowGeometry places = geometry(row);
    const RowContent& content = _model.content(row);
    const auto isThere = [&](RowPart part) {
        return part == RowPart::conflict ? content.pullRequest().hasMergeConflict()
                                         : part != RowPart::dot || content.hasChanged();
    };
    for (const auto& [part, place] : partPlaces) {
        if (isThere(part) && (places.*place).contains(position)) {
            return part;
        }
    }
    return RowPart::row;
}

QRect RowDelegate::place(int row, RowPart part) const
{
    const RowGeometry places = geometry(row);
    for (const auto& [named, place] : partPlaces) {
        if (named == part) {
            return places.*place;
        }
    }
    return {0, 0, _metrics.width, places.height};
}

QString RowDelegate::titleToolTip(int row) const
{
    return title(row)->isElided()
               ? _model.content(row).title() + QLatin1Char('\n') + RowWording::openToolTip
               : RowWording::openToolTip;
}

QString RowDelegate::detailsToolTip(int row) const
{
    const RowContent& content = _model.content(row);
    const DetailsLayout shown = RowTexts::detailsLayout(
        content, _model.now(), _metrics, geometry(row).detailsBesideButton.width());
    QStringList lines{
        shown.isElided ? RowWording::detailsText(RowTexts::details(content, _model.now()))
                       : RowWording::openToolTip};
    if (content.hasChanged()) {
        lines.append(RowTexts::sinceSentence(content, _model.now()));
    }
    return lines.join(QLatin1Char('\n'));
}

QString RowDelegate::toolTip(int row, RowPart part) const
{
    const RowContent& content = _model.content(row);
    switch (part) {
    case RowPart::stateIcon:
        return RowWording::stateToolTip(content.row());
    case RowPart::conflict:
        return RowWording::conflictToolTip;
    case RowPart::review:
        return RowWording::reviewToolTip(content.pullRequest(), content.details());
    case RowPart::check:
        return RowWording::checkToolTip(content.pullRequest(), content.details());
    case RowPart::editorButton:
        return RowWording::editorToolTip;
    case RowPart::title:
        return titleToolTip(row);
    case RowPart::dot:
        return RowTexts::sinceSentence(content, _model.now());
    case RowPart::details:
        return detailsToolTip(row);
    case RowPart::warning:
    case RowPart::row:
        return RowWording::openToolTip;
    }
    return {};
}

void RowDelegate::paint(QPainter& painter, int row, const RowState& situation) const
{
    PullRequestRowView(painter, _metrics, _model.now(), _model.findWords())
        .paint(_model.content(row), geometry(row), *title(row), situation);
}

}  // namespace Tarnwick
