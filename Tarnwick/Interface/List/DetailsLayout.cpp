#include "Tarnwick/Interface/List/DetailsLayout.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace Tarnwick {
namespace {

using RowWording::Details;

const QString dot = QStringLiteral("·");
const QString draft = QStringLiteral("Draft");
const QString ellipsis = QStringLiteral("…");
const QString slash = QStringLiteral("/");

/// Minimum widths of repository and author beside a reason, at text scale 1.
constexpr double leastRepository = 48;
constexpr double leastAuthor = 32;

class DetailsComposer {
public:
    DetailsComposer(
        const Details& details,
        const LineRoom& room,
        const LineMeasure& measure,
        const QStringList& findWords)
        : _whole(details)
        , _details(details)
        , _room(room)
        , _measure(measure.plain)
        , _reasonMeasure(details.reason.isStrong ? measure.strong : measure.plain)
        , _findWords(findWords)
    {
        const auto marks = matchesIn(details.owner + details.repository, findWords);
        const auto middle = details.owner.size();
        _ownerMarks = rangesWithin(marks, {0, middle});
        _repositoryMarks = rangesWithin(marks, {middle, middle + details.repository.size()});
    }

    DetailsLayout fit()
    {
        const bool hasReason = !_details.reason.isEmpty();
        shortenOwner();
        countNames();
        shorten(_details.repository, Qt::ElideMiddle, hasReason ? leastRepository : 0);
        shorten(_details.author, Qt::ElideRight, hasReason ? leastAuthor : 0);
        shortenFirstName();
        if (hasReason && excess() > 0) {
            _details.author.clear();
            _isElided = true;
            shortenFirstName();
        }
        if (hasReason && excess() > 0) {
            _details.repository = ellipsis;
            shortenFirstName();
        }
        DetailsLayout layout = place();
        if (hasReason) {
            endWithEllipsis(layout);
        }
        return layout;
    }

private:
    /// A cache, because most pieces are measured several times.
    double widthOf(const QString& piece)
    {
        const auto known = _widths.constFind(piece);
        return known == _widths.constEnd() ? *_widths.insert(piece, _measure.width(piece)) : *known;
    }

    QString reason() const { return RowWording::reasonText(_details.reason) + _furtherNames; }

    double widthOfReason()
    {
        const QString text = reason();
        const auto known = _reasonWidths.constFind(text);
        return known == _reasonWidths.constEnd()
                   ? *_reasonWidths.insert(text, _reasonMeasure.width(text))
                   : *known;
    }

    double separator() { return 2 * _room.gap + widthOf(dot); }

    double excess()
    {
        double width = widthOf(_details.owner + _details.repository) + _room.gap
                       + widthOf(_details.number) + separator() + widthOf(_details.age);
        if (_details.isDraft) {
            width += widthOf(draft) + separator();
        }
        if (!_details.reason.isEmpty()) {
            width += widthOfReason() + separator();
        }
        if (!_details.author.isEmpty()) {
            width += widthOf(_details.author) + separator();
        }
        return width - _room.width;
    }

    /// `least` is the minimum width at text scale 1.
    void shorten(QString& piece, Qt::TextElideMode mode, double least)
    {
        const double tooMuch = excess();
        if (tooMuch <= 0 || piece.isEmpty()) {
            return;
        }
        const double room = std::max(least * _room.scale, widthOf(piece) - tooMuch);
        if (room >= widthOf(piece)) {
            return;
        }
        const QString cut = _measure.elided(piece, mode, room);
        piece = cut.isEmpty() ? ellipsis : cut;
        _isElided = true;
    }

    void shortenOwner()
    {
        if (excess() <= 0 || _details.owner.isEmpty()) {
            return;
        }
        _isElided = true;
        QString name = std::exchange(_details.owner, QString());
        if (_ownerMarks.empty()) {
            return;
        }
        name.chop(1);
        const double room = -excess() - widthOf(slash);
        const QString cut = _measure.elided(name, Qt::ElideRight, std::max(0.0, room));
        _details.owner = (cut.isEmpty() ? ellipsis : cut) + slash;
    }

    void countNames()
    {
        const auto further = _details.reason.names.size() - 1;
        if (excess() <= 0 || further < 1) {
            return;
        }
        _details.reason.names.resize(1);
        _furtherNames = QStringLiteral(", +%1").arg(further);
        _isElided = true;
    }

    /// Starts from the whole name: other pieces may have been shortened since it was last cut.
    void shortenFirstName()
    {
        if (_details.reason.names.isEmpty()) {
            return;
        }
        QString& name = _details.reason.names.first();
        name = _whole.reason.names.first();
        const double tooMuch = excess();
        if (tooMuch <= 0) {
            return;
        }
        const double room = std::max(0.0, _reasonMeasure.width(name) - tooMuch);
        const QString cut = _reasonMeasure.elided(name, Qt::ElideRight, room);
        name = cut.isEmpty() ? ellipsis : cut;
        _isElided = true;
    }

    std::vector<TextRange> nameMarks() const
    {
        auto marks = rangesShown(_ownerMarks, _whole.owner, _details.owner);
        const auto start = _details.owner.size();
        for (const TextRange& range :
             rangesShown(_repositoryMarks, _whole.repository, _details.repository)) {
            appendRange(marks, {start + range.start, start + range.end});
        }
        return marks;
    }

    std::vector<TextRange> marksIn(const QString& whole, const QString& shown) const
    {
        return rangesShown(matchesIn(whole, _findWords), whole, shown);
    }

    DetailsLayout place()
    {
        DetailsLayout layout;
        layout.isElided = _isElided;
        double left = 0;
        const auto put = [&](const QString& text, std::vector<TextRange> marks = {}) {
            layout.pieces.push_back({text, left, std::move(marks)});
            left += widthOf(text) + _room.gap;
        };
        const auto putBeforeDot = [&](const QString& text, std::vector<TextRange> marks = {}) {
            if (!text.isEmpty()) {
                put(text, std::move(marks));
                put(dot);
            }
        };
        putBeforeDot(_details.isDraft ? draft : QString());
        if (!_details.reason.isEmpty()) {
            layout.pieces.push_back({reason(), left, {}, _details.reason.isStrong});
            left += widthOfReason() + _room.gap;
            put(dot);
        }
        put(_details.owner + _details.repository, nameMarks());
        putBeforeDot(_details.number, marksIn(_whole.number, _details.number));
        putBeforeDot(_details.author, marksIn(_whole.author, _details.author));
        put(_details.age);
        return layout;
    }

    void endWithEllipsis(DetailsLayout& layout)
    {
        std::vector<DetailsLayout::Piece>& pieces = layout.pieces;
        if (pieces.back().left + widthOf(pieces.back().text) <= _room.width) {
            return;
        }
        const double lastStart = _room.width - widthOf(ellipsis);
        while (pieces.size() > 1 && (pieces.back().left > lastStart || pieces.back().text == dot)) {
            pieces.pop_back();
        }
        DetailsLayout::Piece& last = pieces.back();
        const QString whole = last.text;
        const TextMeasure& measure = last.isStrong ? _reasonMeasure : _measure;
        last.text = measure.elided(last.text + ellipsis, Qt::ElideRight, _room.width - last.left);
        last.marks = rangesShown(last.marks, whole, last.text);
        layout.isElided = true;
    }

    const Details& _whole;
    Details _details;  ///< As shortened so far.
    LineRoom _room;
    const TextMeasure& _measure;
    const TextMeasure& _reasonMeasure;
    const QStringList& _findWords;
    std::vector<TextRange> _ownerMarks;
    std::vector<TextRange> _repositoryMarks;
    QHash<QString, double> _widths;
    QHash<QString, double> _reasonWidths;
    QString _furtherNames;
    bool _isElided = false;
};

}  // namespace

DetailsLayout layOutDetails(
    const Details& details,
    const LineRoom& room,
    const LineMeasure& measure,
    const QStringList& findWords)
{
    return DetailsComposer(details, room, measure, findWords).fit();
}

}  // namespace Tarnwick
