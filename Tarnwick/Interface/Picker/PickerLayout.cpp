#include "Tarnwick/Interface/Picker/PickerLayout.h"

#include "Tarnwick/Interface/Look/Appearance.h"

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int sideMargin = 16;
constexpr int headHeight = 44;
constexpr int findGap = 10;
constexpr int findHeight = 28;
constexpr int sectionGap = 12;
constexpr int dividerHeight = 1;
constexpr int summaryHeight = 42;
constexpr int buttonGap = 8;

QRect centredIn(const QRect& line, int x, const QSize& size)
{
    return {QPoint(x, line.top() + (line.height() - size.height()) / 2), size};
}

QRect spanIn(const QRect& line, int start, int end, int height)
{
    return centredIn(line, start, QSize(std::max(0, end - start), height));
}

}  // namespace

PickerLayout::PickerLayout(const QSize& window, const Sizes& sizes, const Appearance& appearance)
{
    const int width = window.width();
    const int end = width - sideMargin;
    head = QRect(0, 0, width, appearance.scaled(headHeight));
    done = centredIn(head, end - sizes.done.width(), sizes.done);
    title = spanIn(head, sideMargin, done.left() - buttonGap, sizes.titleHeight);

    find = QRect(
        sideMargin,
        head.top() + head.height() + findGap,
        end - sideMargin,
        appearance.scaled(findHeight));
    directory = QRect(
        sideMargin,
        find.top() + find.height() + sectionGap,
        end - sideMargin,
        sizes.directoryHeight);
    divider = directory.top() + directory.height() + sectionGap;

    summary = QRect(0, divider + dividerHeight, width, appearance.scaled(summaryHeight));
    selectNone = centredIn(summary, end - sizes.selectNone.width(), sizes.selectNone);
    selectAll = centredIn(
        summary, selectNone.left() - buttonGap - sizes.selectAll.width(), sizes.selectAll);
    count = spanIn(summary, sideMargin, selectAll.left() - buttonGap, sizes.countHeight);

    const int listTop = summary.top() + summary.height();
    list = QRect(0, listTop, width, std::max(0, window.height() - listTop));
}

}  // namespace Tarnwick
