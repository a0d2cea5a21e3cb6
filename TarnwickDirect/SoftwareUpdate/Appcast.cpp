#include "TarnwickDirect/SoftwareUpdate/Appcast.h"

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <QXmlStreamReader>

namespace TarnwickDirect {
namespace {

void setOnce(QString& place, const QString& text)
{
    if (place.isEmpty()) {
        place = text.trimmed();
    }
}

std::optional<std::uint64_t> lengthIn(const QString& text)
{
    bool isNumber = false;
    const qulonglong length = text.toULongLong(&isNumber);
    return isNumber ? std::optional<std::uint64_t>(length) : std::nullopt;
}

/// Looks up the qualified name, because feeds bind the prefix to various namespaces.
QString attribute(const QXmlStreamReader& xml, QStringView name)
{
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        if (attribute.qualifiedName() == name) {
            return attribute.value().trimmed().toString();
        }
    }
    return {};
}

/// Where to store the text of an element or attribute of an item; null if it is ignored. `common`
/// holds what the item says outside of its enclosures.
QString* placeFor(QStringView name, AppcastItem& item, AppcastEnclosure& common)
{
    const std::pair<QStringView, QString*> places[] = {
        {u"sparkle:version", &item.version},
        {u"sparkle:shortVersionString", &item.shortVersion},
        {u"sparkle:minimumSystemVersion", &item.minimumSystemVersion},
        {u"sparkle:channel", &item.channel},
        {u"description", &item.releaseNotes},
        {u"sparkle:edSignature", &common.signature},
        {u"sparkle:os", &common.operatingSystem},
    };
    for (const auto& [known, place] : places) {
        if (known == name) {
            return place;
        }
    }
    return nullptr;
}

void readEnclosure(const QXmlStreamReader& xml, AppcastItem& item)
{
    AppcastEnclosure enclosure{
        .url = QUrl(attribute(xml, u"url"), QUrl::StrictMode),
        .length = lengthIn(attribute(xml, u"length")),
        .type = attribute(xml, u"type").toLower(),
        .signature = {},
        .operatingSystem = {}};
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        if (QString* const place = placeFor(attribute.qualifiedName(), item, enclosure)) {
            setOnce(*place, attribute.value().toString());
        }
    }
    item.enclosures.push_back(enclosure);
}

AppcastItem readItem(QXmlStreamReader& xml)
{
    AppcastItem item;
    AppcastEnclosure common;
    while (xml.readNextStartElement()) {
        const QStringView name = xml.qualifiedName();
        if (QString* const place = placeFor(name, item, common)) {
            setOnce(*place, xml.readElementText(QXmlStreamReader::IncludeChildElements));
            continue;
        }
        if (name == u"enclosure") {
            readEnclosure(xml, item);
        } else if (name == u"sparkle:criticalUpdate") {
            item.isCritical = true;
            setOnce(item.criticalBelow, attribute(xml, u"sparkle:version"));
        }
        xml.skipCurrentElement();
    }
    for (AppcastEnclosure& enclosure : item.enclosures) {
        setOnce(enclosure.signature, common.signature);
        setOnce(enclosure.operatingSystem, common.operatingSystem);
        enclosure.operatingSystem = enclosure.operatingSystem.toLower();
    }
    for (QString* const version :
         {&item.version, &item.shortVersion, &item.minimumSystemVersion, &item.criticalBelow}) {
        *version = version->removeIf(isUnseen).trimmed();
    }
    return item;
}

/// Moves to the root element; a document type declaration would come before it.
void enterDocument(QXmlStreamReader& xml)
{
    while (!xml.atEnd() && !xml.isStartElement()) {
        if (xml.readNext() == QXmlStreamReader::DTD) {
            throw UpdateError(QStringLiteral(
                "The update feed contains a document type declaration, which is not allowed."));
        }
    }
    if (!xml.hasError() && xml.qualifiedName() != u"rss") {
        throw UpdateError(QStringLiteral("The update feed is not an RSS feed."));
    }
}

void throwIfMalformed(const QXmlStreamReader& xml)
{
    if (xml.error() == QXmlStreamReader::PrematureEndOfDocumentError) {
        throw UpdateError(
            QStringLiteral("The update feed ends too early, at line %1.").arg(xml.lineNumber()));
    }
    if (xml.hasError()) {
        throw UpdateError(QStringLiteral("The update feed is not well-formed XML at line %1.")
                              .arg(xml.lineNumber()));
    }
}

}  // namespace

bool isUnseen(QChar character)
{
    const auto category = character.category();
    return category == QChar::Other_Control || category == QChar::Other_Format
           || category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

Appcast readAppcast(const QByteArray& feed)
{
    if (feed.trimmed().isEmpty()) {
        throw UpdateError(QStringLiteral("The update feed is empty."));
    }
    if (feed.size() > appcastSizeLimit) {
        throw UpdateError(QStringLiteral("The update feed is larger than 4 MiB."));
    }
    Appcast items;
    QXmlStreamReader xml(feed);
    enterDocument(xml);
    while (xml.readNextStartElement()) {
        if (xml.qualifiedName() != u"channel") {
            xml.skipCurrentElement();
            continue;
        }
        while (xml.readNextStartElement()) {
            if (xml.qualifiedName() == u"item") {
                items.push_back(readItem(xml));
            } else {
                xml.skipCurrentElement();
            }
        }
    }
    // Reads to the end to detect garbage after the root element.
    while (!xml.atEnd()) {
        xml.readNext();
    }
    throwIfMalformed(xml);
    return items;
}

}  // namespace TarnwickDirect
