#pragma once

#include <QImage>
#include <QWidget>

#include <string>

namespace Tarnwick {

/// The widget as it is painted at this size and scale factor, off screen.
QImage pictureOf(QWidget& widget, double scaleFactor = 1);

/// Fails the test when the picture differs from the stored one by more than a few pixels' rounding.
/// With TARNWICK_UPDATE_PICTURES set it stores the picture instead, for somebody to look at. Skips
/// where the fonts could not be bundled.
void expectPicture(const QImage& picture, const std::string& name);

}  // namespace Tarnwick
