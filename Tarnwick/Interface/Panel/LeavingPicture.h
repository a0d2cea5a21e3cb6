#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

namespace Tarnwick {

/// A picture of a closed card that fades out, sinks by a few pixels and then deletes itself.
/// Ignores focus and mouse. Main thread only.
class LeavingPicture final : public QWidget {
    Q_OBJECT

public:
    /// `card` and `scrim` cover the whole of `parent`; the scrim does not move.
    LeavingPicture(const QPixmap& card, const QColor& scrim, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap _card;
    QColor _scrim;
    QVariantAnimation _animation;
};

}  // namespace Tarnwick
