#include "TarnwickDirect/SoftwareUpdate/ReleaseNotes.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>

namespace TarnwickDirect {
namespace {

constexpr qsizetype lengthLimit = 20'000;

QString markOf(const QTextBlock& block)
{
    const QTextList* const list = block.textList();
    if (list == nullptr) {
        return {};
    }
    const bool isNumbered = list->format().style() <= QTextListFormat::ListDecimal;
    return isNumbered ? list->itemText(block) + u' ' : QStringLiteral("• ");
}

/// The document is never laid out, so it never loads linked resources.
QString textOfHtml(const QString& html)
{
    QTextDocument document;
    document.setHtml(html);
    QString text;
    for (auto block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && !text.isEmpty()) {
            text += u'\n';
        }
        text += markOf(block) + block.text().replace(QChar::LineSeparator, u'\n') + u'\n';
    }
    return text;
}

bool isInvisible(QChar character)
{
    const auto category = character.category();
    return character == QChar::ObjectReplacementCharacter || category == QChar::Other_Format
           || (category == QChar::Other_Control && character != u'\n');
}

}  // namespace

QString plainReleaseNotes(const QString& notes)
{
    QString text = Qt::mightBeRichText(notes) ? textOfHtml(notes) : notes;
    text.replace(u'\t', u' ');
    text.replace(QChar::Nbsp, u' ');
    text.removeIf(isInvisible);
    text = text.trimmed();
    if (text.size() > lengthLimit) {
        text = text.first(lengthLimit) + u'…';
    }
    return text;
}

}  // namespace TarnwickDirect
