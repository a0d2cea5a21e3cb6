#include "Tarnwick/Interface/Picker/PickerRowGeometry.h"

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int sideMargin = 16;
constexpr int rowMargin = 7;
constexpr int fillMargin = 8;
constexpr int checkBoxGap = 12;
constexpr int eyeGap = 6;
constexpr int buttonGap = 12;
constexpr int buttonReach = 8;

QRect centered(int x, int width, int height, int within)
{
    return {x, (within - height) / 2, width, height};
}

}  // namespace

PickerRowMetrics::PickerRowMetrics()
    : name(appearance().line(TextStyle::headline, TextWeight::bold))
    , detail(appearance().line(TextStyle::caption, TextWeight::regular))
    , button(appearance().line(TextStyle::footnote, TextWeight::medium))
    , checkBox(appearance().scaled(16))
    , eye(appearance().scaled(14))
    , repositoryHeight(rowMargin + name.height + detail.height + rowMargin)
    , ownerHeight(appearance().scaled(32))
{}

PickerRowGeometry PickerRowGeometry::ofRepository(
    int width, int nameWidth, bool hasEye, const PickerRowMetrics& metrics)
{
    const int height = metrics.repositoryHeight;
    const int start = sideMargin + metrics.checkBox + checkBoxGap;
    const int room = std::max(0, width - sideMargin - start);
    const int eyeRoom = hasEye ? eyeGap + metrics.eye : 0;
    const int nameRoom = std::clamp(room - eyeRoom, 0, nameWidth);

    PickerRowGeometry geometry;
    geometry.row = QRect(0, 0, width, height);
    geometry.fill = QRect(fillMargin, 1, width - 2 * fillMargin, height - 2);
    geometry.checkBox = centered(sideMargin, metrics.checkBox, metrics.checkBox, height);
    geometry.name = QRect(start, rowMargin, nameRoom, metrics.name.height);
    if (hasEye) {
        const int eyeTop = rowMargin + (metrics.name.height - metrics.eye) / 2;
        geometry.eye = QRect(start + nameRoom + eyeGap, eyeTop, metrics.eye, metrics.eye);
    }
    geometry.detail = QRect(start, rowMargin + metrics.name.height, room, metrics.detail.height);
    return geometry;
}

PickerRowGeometry PickerRowGeometry::ofOwner(
    int width, int buttonWidth, const PickerRowMetrics& metrics)
{
    const int height = metrics.ownerHeight;
    const int buttonStart = width - sideMargin - buttonWidth;

    PickerRowGeometry geometry;
    geometry.row = QRect(0, 0, width, height);
    geometry.fill = QRect(fillMargin, 1, width - 2 * fillMargin, height - 2);
    geometry.name = centered(
        sideMargin, std::max(0, buttonStart - buttonGap - sideMargin), metrics.name.height, height);
    geometry.button = centered(buttonStart, buttonWidth, metrics.button.height, height);
    geometry.buttonHit =
        QRect(buttonStart - buttonReach, 0, buttonWidth + buttonReach + sideMargin, height);
    return geometry;
}

}  // namespace Tarnwick
