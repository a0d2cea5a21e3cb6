#include "TarnwickDirect/Application/PanelSize.h"

#include <QStringList>

#include <optional>
#include <string_view>

namespace TarnwickDirect::PanelSize {
namespace {

/// Stored: do not rename.
constexpr std::string_view key = "panel.size";

constexpr QSizeF firstSize(440, 620);

QString textOf(const QSize& size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

/// Nothing if the text is not from `textOf`.
std::optional<QSize> parsed(const QString& text)
{
    constexpr int least = 10;
    constexpr int most = 99'999;
    const QStringList lengths = text.split(QLatin1Char('x'));
    const QSize size(lengths.value(0).toInt(), lengths.value(1).toInt());
    const bool isSensible = size.boundedTo({most, most}).expandedTo({least, least}) == size;
    return isSensible && textOf(size) == text ? std::optional(size) : std::nullopt;
}

}  // namespace

QSize read(const Tarnwick::DefaultsStore& store, double textScale)
{
    const auto text = Tarnwick::readText(store, key);
    const auto size = text ? parsed(QString::fromStdString(*text)) : std::nullopt;
    return size.value_or((firstSize * textScale).toSize());
}

void write(Tarnwick::DefaultsStore& store, const QSize& size)
{
    Tarnwick::writeText(store, key, textOf(size).toStdString());
}

}  // namespace TarnwickDirect::PanelSize
