#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

namespace Tarnwick {

/// A picture of a card that has gone: it fades out over what it was drawn on, sinks by a few pixels
/// meanwhile, takes neither focus nor mouse, and deletes itself at the end. Main thread only.
class LeavingPicture final : public QWidget {
    Q_OBJECT

public:
    /// `card` lies over the whole of `parent`, as `scrim` does, which does not move.
    LeavingPicture(const QPixmap& card, const QColor& scrim, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap _card;
    QColor _scrim;
    QVariantAnimation _animation;
};

}  // namespace Tarnwick
