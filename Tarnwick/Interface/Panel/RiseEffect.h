#pragma once

#include <QGraphicsEffect>
#include <QVariantAnimation>

namespace Tarnwick {

/// How a card over the panel appears: it fades in while it rises by a few pixels, with everything
/// in it, and the scrim below it fades in with it. Enabled only meanwhile, so that it costs nothing
/// afterwards; never where the desktop wants no motion. Main thread only.
class RiseEffect final : public QGraphicsEffect {
    Q_OBJECT

public:
    /// How far the card moves, in logical pixels.
    static constexpr double distance = 4;

    explicit RiseEffect(QObject* parent);

    void start();
    void stop();

protected:
    void draw(QPainter* painter) override;

private:
    QVariantAnimation _animation;
};

}  // namespace Tarnwick
