#pragma once

#include <QLabel>

#include <vector>

namespace Tarnwick {

/// A centered sentence. Text between backquotes is shown as an unbreakable code chip.
class HintText final : public QLabel {
    Q_OBJECT

public:
    explicit HintText(QWidget* parent);

    /// Sets the width and the resulting height.
    void fit(int width);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Piece {
        QString text;
        bool isCode = false;
        QRectF place;
    };

    /// Each line begins at 0.
    std::vector<Piece> words() const;
    std::vector<Piece> pieces(double width) const;
};

}  // namespace Tarnwick
