#pragma once

#include <QLabel>

#include <vector>

namespace Tarnwick {

/// A centered sentence in which what stands between backquotes is set as code on a chip that is
/// never broken.
class HintText final : public QLabel {
    Q_OBJECT

public:
    explicit HintText(QWidget* parent);

    /// Gives the sentence this width and the height that it takes.
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
