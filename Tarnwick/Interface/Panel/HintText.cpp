#include "Tarnwick/Interface/Panel/HintText.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QFontDatabase>
#include <QPainter>

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int lineHeight = 20;
constexpr double codeSize = 0.92;
constexpr int chipPadding = 4;
constexpr double chipRadius = 4;

LineStyle plainStyle()
{
    LineStyle style = appearance().line(TextStyle::body, TextWeight::regular);
    style.height = appearance().scaled(lineHeight);
    style.baseline = baselineOf(style.pixelSize, style.height);
    return style;
}

LineStyle codeStyle()
{
    LineStyle style = plainStyle();
    const double points = style.font.pointSizeF() * codeSize;
    style.font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    style.font.setPointSizeF(points);
    return style;
}

}  // namespace

HintText::HintText(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

/// Text between backquotes is code and forms a single piece.
std::vector<HintText::Piece> HintText::words() const
{
    std::vector<Piece> words;
    bool isCode = false;
    for (const QString& part : text().split(QLatin1Char('`'))) {
        for (const QString& word : isCode ? QStringList{part} : part.split(QLatin1Char(' '))) {
            if (!word.isEmpty()) {
                words.push_back({word, isCode, {}});
            }
        }
        isCode = !isCode;
    }
    return words;
}

std::vector<HintText::Piece> HintText::pieces(double width) const
{
    const LineStyle plain = plainStyle();
    const LineStyle code = codeStyle();
    const double space = Painting::width(QStringLiteral(" "), plain);
    std::vector<Piece> pieces = words();
    QPointF end;
    for (Piece& piece : pieces) {
        const double wordWidth = piece.isCode ? Painting::width(piece.text, code) + 2 * chipPadding
                                              : Painting::width(piece.text, plain);
        const bool isFirst = end.x() == 0;
        const bool fits = end.x() + space + wordWidth <= width;
        const QPointF start = isFirst ? end
                              : fits  ? end + QPointF(space, 0)
                                      : QPointF(0, end.y() + plain.height);
        piece.place = QRectF(start, QSizeF(wordWidth, plain.height));
        end = start + QPointF(wordWidth, 0);
    }
    return pieces;
}

void HintText::fit(int width)
{
    setFixedSize(width, static_cast<int>(pieces(width).back().place.bottom()));
}

void HintText::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    const std::vector<Piece> all = pieces(width());
    for (const Piece& piece : all) {
        const auto last =
            std::ranges::find(all.rbegin(), all.rend(), piece.place.top(), [](const Piece& other) {
                return other.place.top();
            });
        const QRectF box = piece.place.translated((width() - last->place.right()) / 2, 0);
        if (piece.isCode) {
            Painting::fillRounded(painter, box.adjusted(0, 1, 0, -1), chipRadius, palette.chip);
        }
        Painting::text(
            painter,
            box.adjusted(piece.isCode ? chipPadding : 0, 0, 0, 0),
            piece.text,
            piece.isCode ? codeStyle() : plainStyle(),
            palette.textSecondary);
    }
}

}  // namespace Tarnwick
