#pragma once

#include <QGraphicsEffect>
#include <QVariantAnimation>

namespace Tarnwick {

/// Fades a card in while it rises by a few pixels, and its scrim with it. Enabled only during the
/// animation, because it is expensive; never without motion. Main thread only.
class RiseEffect final : public QGraphicsEffect {
    Q_OBJECT

public:
    /// In logical pixels.
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
