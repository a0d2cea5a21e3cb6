#include "TarnwickDirect/SoftwareUpdate/AppcastReader.h"

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <QDateTime>
#include <QXmlStreamReader>

#include <algorithm>
#include <functional>
#include <iterator>

namespace TarnwickDirect {
namespace {

/// What an item says beside its enclosure holds for each enclosure that does not say it itself.
struct ItemReading {
    AppcastItem item;
    AppcastEnclosure common;
};

void setOnce(QString& place, const QString& text)
{
    if (place.isEmpty()) {
        place = text.trimmed();
    }
}

/// Users read a version in sentences and buttons, which characters that are not seen could turn
/// around or break.
bool isUnseen(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

void setVersionOnce(QString& place, const QString& text)
{
    QString seen;
    std::ranges::copy_if(text, std::back_inserter(seen), std::not_fn(isUnseen));
    setOnce(place, seen);
}

std::optional<PullRequestKit::Date> dateIn(const QString& text)
{
    const QDateTime date = QDateTime::fromString(text.trimmed(), Qt::RFC2822Date);
    if (!date.isValid()) {
        return std::nullopt;
    }
    return PullRequestKit::Date{std::chrono::seconds{date.toSecsSinceEpoch()}};
}

std::optional<std::uint64_t> lengthIn(QStringView text)
{
    bool isNumber = false;
    const qulonglong length = text.trimmed().toULongLong(&isNumber);
    return isNumber ? std::optional<std::uint64_t>(length) : std::nullopt;
}

QString attribute(const QXmlStreamReader& xml, QStringView name)
{
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        if (attribute.qualifiedName() == name) {
            return attribute.value().trimmed().toString();
        }
    }
    return {};
}

/// The text of the current element, markup within it included as text alone.
QString textOf(QXmlStreamReader& xml)
{
    return xml.readElementText(QXmlStreamReader::IncludeChildElements);
}

void readEnclosure(QXmlStreamReader& xml, AppcastItem& item)
{
    item.enclosures.push_back(
        {.url = QUrl(attribute(xml, u"url"), QUrl::StrictMode),
         .length = lengthIn(attribute(xml, u"length")),
         .type = attribute(xml, u"type").toLower(),
         .signature = attribute(xml, u"sparkle:edSignature"),
         .operatingSystem = attribute(xml, u"sparkle:os").toLower()});
    setVersionOnce(item.version, attribute(xml, u"sparkle:version"));
    setVersionOnce(item.shortVersion, attribute(xml, u"sparkle:shortVersionString"));
    setVersionOnce(item.minimumSystemVersion, attribute(xml, u"sparkle:minimumSystemVersion"));
    setOnce(item.channel, attribute(xml, u"sparkle:channel"));
    xml.skipCurrentElement();
}

void readCriticalUpdate(QXmlStreamReader& xml, AppcastItem& item)
{
    item.isCritical = true;
    setVersionOnce(item.criticalBelow, attribute(xml, u"sparkle:version"));
    xml.skipCurrentElement();
}

bool isVersion(const QString* place, const AppcastItem& item)
{
    return place == &item.version || place == &item.shortVersion
           || place == &item.minimumSystemVersion;
}

/// The place in which the text of an element goes, or none.
QString* placeFor(QStringView element, ItemReading& reading)
{
    AppcastItem& item = reading.item;
    const std::pair<QStringView, QString*> places[] = {
        {u"title", &item.title},
        {u"description", &item.releaseNotes},
        {u"sparkle:version", &item.version},
        {u"sparkle:shortVersionString", &item.shortVersion},
        {u"sparkle:minimumSystemVersion", &item.minimumSystemVersion},
        {u"sparkle:channel", &item.channel},
        {u"sparkle:edSignature", &reading.common.signature},
        {u"sparkle:os", &reading.common.operatingSystem},
    };
    for (const auto& [name, place] : places) {
        if (name == element) {
            return place;
        }
    }
    return nullptr;
}

void readItemElement(QXmlStreamReader& xml, ItemReading& reading)
{
    AppcastItem& item = reading.item;
    const QString name = xml.qualifiedName().toString();
    if (QString* const place = placeFor(name, reading)) {
        const auto set = isVersion(place, item) ? setVersionOnce : setOnce;
        set(*place, textOf(xml));
    } else if (name == u"enclosure") {
        readEnclosure(xml, item);
    } else if (name == u"sparkle:criticalUpdate") {
        readCriticalUpdate(xml, item);
    } else if (name == u"sparkle:releaseNotesLink" && item.releaseNotesLink.isEmpty()) {
        item.releaseNotesLink = QUrl(textOf(xml).trimmed(), QUrl::StrictMode);
    } else if (name == u"pubDate" && !item.publicationDate) {
        item.publicationDate = dateIn(textOf(xml));
    } else {
        xml.skipCurrentElement();
    }
}

AppcastItem readItem(QXmlStreamReader& xml)
{
    ItemReading reading;
    while (xml.readNextStartElement()) {
        readItemElement(xml, reading);
    }
    for (AppcastEnclosure& enclosure : reading.item.enclosures) {
        setOnce(enclosure.signature, reading.common.signature);
        setOnce(enclosure.operatingSystem, reading.common.operatingSystem.toLower());
    }
    return reading.item;
}

void readChannel(QXmlStreamReader& xml, Appcast& appcast)
{
    while (xml.readNextStartElement()) {
        if (xml.qualifiedName() == u"item") {
            appcast.items.push_back(readItem(xml));
        } else if (xml.qualifiedName() == u"title") {
            setOnce(appcast.title, textOf(xml));
        } else {
            xml.skipCurrentElement();
        }
    }
}

/// Goes to the root element. Entities and attributes with defaults are only to be had through a
/// document type, which comes before it.
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
    switch (xml.error()) {
    case QXmlStreamReader::NoError:
        return;
    case QXmlStreamReader::PrematureEndOfDocumentError:
        throw UpdateError(
            QStringLiteral("The update feed is cut off in line %1.").arg(xml.lineNumber()));
    case QXmlStreamReader::UnexpectedElementError:
    case QXmlStreamReader::CustomError:
    case QXmlStreamReader::NotWellFormedError:
        throw UpdateError(QStringLiteral("The update feed is not well-formed XML in line %1.")
                              .arg(xml.lineNumber()));
    }
}

}  // namespace

Appcast readAppcast(const QByteArray& feed)
{
    if (feed.trimmed().isEmpty()) {
        throw UpdateError(QStringLiteral("The update feed is empty."));
    }
    if (feed.size() > appcastSizeLimit) {
        throw UpdateError(QStringLiteral("The update feed is larger than 4 MiB."));
    }
    Appcast appcast;
    QXmlStreamReader xml(feed);
    enterDocument(xml);
    while (xml.readNextStartElement()) {
        if (xml.qualifiedName() == u"channel") {
            readChannel(xml, appcast);
        } else {
            xml.skipCurrentElement();
        }
    }
    // What follows the root element is read as well, so that rubbish there is noticed.
    while (!xml.atEnd()) {
        xml.readNext();
    }
    throwIfMalformed(xml);
    return appcast;
}

}  // namespace TarnwickDirect
