#pragma once

#include <QVBoxLayout>
#include <QWidget>

namespace Tarnwick {

class RiseEffect;

/// A card over the whole panel, which is dimmed: nothing else can be used until it is gone. The
/// focus stays inside. It appears with a short fade and rise, and leaves with the reverse, which it
/// takes no part in: it is out of use at once.
class CardOverlay : public QWidget {
    Q_OBJECT

public:
    /// `cardWidth` at text scale 1.
    CardOverlay(int cardWidth, QWidget* parent);

    /// The card, in the overlay's coordinates.
    QRect card() const;

protected:
    /// What stands in the card, from the top.
    QVBoxLayout& content() { return *_content; }

    /// Gives the card's texts this width, which is the card's inner one.
    virtual void fit(int width) = 0;
    void layOut();
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void leavePicture();

    int _cardWidth;
    RiseEffect* _rise;    ///< Enabled while the overlay appears.
    QSpacerItem* _width;  ///< Of the content.
    QVBoxLayout* _content;
    bool _isPicturing = false;  ///< Without the scrim, for the picture that it leaves.
};

}  // namespace Tarnwick
