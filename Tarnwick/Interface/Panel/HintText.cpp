#include "Tarnwick/Interface/Panel/HintText.h"

#include "Tarnwick/Interface/Look/Painting.h"

#include <QFontDatabase>
#include <QPainter>

namespace Tarnwick {
namespace {

constexpr int lineHeight = 20;
constexpr double codeSize = 0.92;
constexpr int chipPadding = 4;
constexpr double chipRadius = 4;

LineStyle plainStyle(const Appearance& appearance)
{
    LineStyle style = appearance.line(TextStyle::body, TextWeight::regular);
    style.height = appearance.scaled(lineHeight);
    style.baseline = baselineOf(style.pixelSize, style.height);
    return style;
}

LineStyle codeStyle(const Appearance& appearance)
{
    LineStyle style = plainStyle(appearance);
    const double points = style.font.pointSizeF() * codeSize;
    style.font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    style.font.setPointSizeF(points);
    return style;
}

}  // namespace

HintText::HintText(const QString& sentence, const Appearance& appearance, QWidget* parent)
    : QLabel(sentence, parent)
    , _appearance(appearance)
{
    setTextFormat(Qt::PlainText);
}

QList<HintText::Piece> HintText::pieces() const
{
    const LineStyle plain = plainStyle(_appearance);
    const LineStyle code = codeStyle(_appearance);
    const double space = Painting::width(QStringLiteral(" "), plain);
    QList<Piece> pieces;
    bool isCode = false;
    for (const QString& part : text().split(QLatin1Char('`'))) {
        const QStringList words = isCode ? QStringList{part} : part.split(QLatin1Char(' '));
        for (const QString& word : words) {
            if (!word.isEmpty()) {
                const double width = isCode ? Painting::width(word, code) + 2 * chipPadding
                                            : Painting::width(word, plain);
                pieces.append({word, isCode, width, space});
            }
        }
        isCode = !isCode;
    }
    return pieces;
}

QList<HintText::Line> HintText::lines(double width) const
{
    QList<Line> lines{{}};
    double used = 0;
    for (Piece piece : pieces()) {
        if (!lines.last().isEmpty() && used + piece.spaceBefore + piece.width > width) {
            lines.append(Line());
            used = 0;
        }
        if (lines.last().isEmpty()) {
            piece.spaceBefore = 0;
        }
        used += piece.spaceBefore + piece.width;
        lines.last().append(piece);
    }
    return lines;
}

void HintText::fit(int width)
{
    const auto count = static_cast<int>(lines(width).size());
    resize(width, count * plainStyle(_appearance).height);
}

void HintText::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = _appearance.palette();
    const LineStyle plain = plainStyle(_appearance);
    const LineStyle code = codeStyle(_appearance);
    double top = 0;
    for (const Line& line : lines(width())) {
        double used = 0;
        for (const Piece& piece : line) {
            used += piece.spaceBefore + piece.width;
        }
        double x = (width() - used) / 2;
        for (const Piece& piece : line) {
            x += piece.spaceBefore;
            QRectF box(x, top, piece.width, plain.height);
            if (piece.isCode) {
                Painting::fillRounded(painter, box.adjusted(0, 1, 0, -1), chipRadius, palette.chip);
                Painting::text(
                    painter,
                    box.adjusted(chipPadding, 0, 0, 0),
                    piece.text,
                    code,
                    palette.textSecondary);
            } else {
                Painting::text(painter, box, piece.text, plain, palette.textSecondary);
            }
            x += piece.width;
        }
        top += plain.height;
    }
}

}  // namespace Tarnwick
