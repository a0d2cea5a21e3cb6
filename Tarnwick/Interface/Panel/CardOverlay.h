#pragma once

#include <QWidget>

namespace Tarnwick {

class Appearance;
class RiseEffect;

/// A card over the whole panel, which is dimmed: nothing else can be used until it is gone. The
/// focus stays inside. It appears with a short fade and rise, and leaves with the reverse, which it
/// takes no part in: it is out of use at once.
class CardOverlay : public QWidget {
    Q_OBJECT

public:
    /// `cardWidth` at text scale 1.
    CardOverlay(int cardWidth, const Appearance& appearance, QWidget* parent);

    /// The card, in the overlay's coordinates.
    QRect card() const;

protected:
    /// Lays out the card's content, its upper left corner at `origin`, and returns the height of
    /// the content. Called with the card's inner width.
    virtual int layOutContent(const QPoint& origin, int width) = 0;

    const Appearance& appearance() const { return _appearance; }

    void layOut();
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void leavePicture();

    int _cardWidth;
    const Appearance& _appearance;
    RiseEffect* _rise;  ///< Enabled while the overlay appears.
    QRect _card;
    bool _isPicturing = false;  ///< Without the scrim, for the picture that it leaves.
};

}  // namespace Tarnwick
