#pragma once

#include <QVBoxLayout>
#include <QWidget>

namespace Tarnwick {

class RiseEffect;

/// A modal card over the dimmed panel. The focus stays inside. It appears and disappears with a
/// short animation, and is disabled as soon as it disappears.
class CardOverlay : public QWidget {
    Q_OBJECT

public:
    /// `cardWidth` is at text scale 1.
    CardOverlay(int cardWidth, QWidget* parent);

    /// The card in the overlay's coordinates.
    QRect card() const { return _content->geometry(); }

protected:
    /// The layout of the card's content.
    QVBoxLayout& content() { return *_content; }

    /// Sets the width of the card's texts to the card's inner width.
    virtual void fit(int width) = 0;
    void layOut();
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    void resizeEvent(QResizeEvent* /*event*/) override { layOut(); }

    void mousePressEvent(QMouseEvent* /*event*/) override {}

    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void leavePicture();

    int _cardWidth;
    RiseEffect* _rise;    ///< Enabled while the overlay appears.
    QSpacerItem* _width;  ///< Of the content.
    QVBoxLayout* _content;
    bool _isPicturing = false;  ///< While the final picture is rendered, without the scrim.
};

}  // namespace Tarnwick
