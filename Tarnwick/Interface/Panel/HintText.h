#pragma once

#include <QLabel>

namespace Tarnwick {

class Appearance;

/// A centred sentence in which what stands between backquotes is set as code on a chip that is
/// never broken.
class HintText final : public QLabel {
    Q_OBJECT

public:
    HintText(const QString& sentence, const Appearance& appearance, QWidget* parent);

    /// Gives the sentence this width and the height that it takes.
    void fit(int width);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Piece {
        QString text;
        bool isCode = false;
        double width = 0;
        double spaceBefore = 0;
    };

    using Line = QList<Piece>;

    QList<Line> lines(double width) const;
    QList<Piece> pieces() const;

    const Appearance& _appearance;
};

}  // namespace Tarnwick
