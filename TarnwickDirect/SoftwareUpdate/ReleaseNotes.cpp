#include "TarnwickDirect/SoftwareUpdate/ReleaseNotes.h"

#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>

namespace TarnwickDirect {
namespace {

constexpr qsizetype lengthLimit = 20'000;

bool isInvisible(QChar character)
{
    const auto category = character.category();
    return character == QChar::ObjectReplacementCharacter || category == QChar::Other_Format
           || (category == QChar::Other_Control && character != u'\n');
}

}  // namespace

QString plainReleaseNotes(const QString& notes)
{
    QString text =
        Qt::mightBeRichText(notes) ? QTextDocumentFragment::fromHtml(notes).toPlainText() : notes;
    text.replace(u'\t', u' ');
    text.removeIf(isInvisible);
    text = text.trimmed();
    if (text.size() > lengthLimit) {
        text = text.first(lengthLimit) + u'…';
    }
    return text;
}

}  // namespace TarnwickDirect
