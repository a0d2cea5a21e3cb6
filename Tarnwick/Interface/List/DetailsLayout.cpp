#include "Tarnwick/Interface/List/DetailsLayout.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

namespace Tarnwick {
namespace {

using RowWording::Details;

const QString dot = QStringLiteral("·");
const QString draft = QStringLiteral("Draft");

class DetailsComposer {
public:
    DetailsComposer(Details details, double gap, const TextMeasure& measure)
        : _details(std::move(details))
        , _gap(gap)
        , _measure(measure)
    {}

    DetailsLayout fit(double width)
    {
        if (widthOf(_details) > width && !_details.owner.isEmpty()) {
            _details.owner.clear();
            _isElided = true;
        }
        shorten(_details.repository, Qt::ElideMiddle, width);
        shorten(_details.author, Qt::ElideRight, width);
        return place();
    }

private:
    /// Most pieces are asked for several times.
    double widthOf(const QString& piece)
    {
        const auto known = _widths.constFind(piece);
        return known == _widths.constEnd() ? *_widths.insert(piece, _measure.width(piece)) : *known;
    }

    double widthOf(const Details& details)
    {
        double width = widthOf(details.owner + details.repository) + _gap + widthOf(details.number)
                       + separator() + widthOf(details.age);
        if (details.isDraft) {
            width += widthOf(draft) + separator();
        }
        if (!details.author.isEmpty()) {
            width += widthOf(details.author) + separator();
        }
        return width;
    }

    double separator() { return 2 * _gap + widthOf(dot); }

    void shorten(QString& piece, Qt::TextElideMode mode, double width)
    {
        const double excess = widthOf(_details) - width;
        if (excess <= 0 || piece.isEmpty()) {
            return;
        }
        const double room = std::max(0.0, widthOf(piece) - excess);
        const QString cut = _measure.elided(piece, mode, room);
        piece = cut.isEmpty() ? QStringLiteral("…") : cut;
        _isElided = true;
    }

    DetailsLayout place()
    {
        DetailsLayout layout;
        layout.isElided = _isElided;
        double left = 0;
        const auto put = [&](const QString& text) {
            layout.pieces.push_back({text, left});
            left += widthOf(text) + _gap;
        };
        if (_details.isDraft) {
            put(draft);
            put(dot);
        }
        put(_details.owner + _details.repository);
        put(_details.number);
        put(dot);
        if (!_details.author.isEmpty()) {
            put(_details.author);
            put(dot);
        }
        put(_details.age);
        return layout;
    }

    Details _details;
    double _gap;
    const TextMeasure& _measure;
    QHash<QString, double> _widths;
    bool _isElided = false;
};

}  // namespace

QString DetailsLayout::text() const
{
    QStringList texts;
    for (const Piece& piece : pieces) {
        texts.append(piece.text);
    }
    return texts.join(QLatin1Char(' '));
}

DetailsLayout layOutDetails(
    const Details& details, double width, double gap, const TextMeasure& measure)
{
    return DetailsComposer(details, gap, measure).fit(width);
}

}  // namespace Tarnwick
