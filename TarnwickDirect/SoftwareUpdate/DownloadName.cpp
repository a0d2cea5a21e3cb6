#include "TarnwickDirect/SoftwareUpdate/DownloadName.h"

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <algorithm>

namespace TarnwickDirect {
namespace {

/// Leaves room for what is appended to it while the file is incomplete.
constexpr qsizetype lengthLimit = 200;

bool isForbidden(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return character == u'/' || character == u'\\' || character == QChar::ReplacementCharacter;
    }
}

}  // namespace

QString downloadName(const QUrl& url)
{
    const QString path = url.path(QUrl::FullyEncoded);
    const QByteArray encoded = path.sliced(path.lastIndexOf(u'/') + 1).toLatin1();
    const QByteArray bytes = QByteArray::fromPercentEncoding(encoded);
    const QString name = QString::fromUtf8(bytes);
    if (name.isEmpty()) {
        throw UpdateError(QStringLiteral("The update's address names no file."));
    }
    if (name.startsWith(u'.') || std::ranges::any_of(name, isForbidden)) {
        throw UpdateError(QStringLiteral("The update's file name \"%1\" is not a plain name.")
                              .arg(QString::fromLatin1(encoded)));
    }
    if (bytes.size() > lengthLimit) {
        throw UpdateError(QStringLiteral("The update's file name is too long."));
    }
    return name;
}

}  // namespace TarnwickDirect
