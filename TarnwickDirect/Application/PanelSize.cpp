#include "TarnwickDirect/Application/PanelSize.h"

#include <charconv>
#include <optional>
#include <string_view>

namespace TarnwickDirect::PanelSize {
namespace {

/// Stored: do not rename.
const QString key = QStringLiteral("panel.size");

constexpr QSizeF firstSize(440, 620);

/// A number of two to five digits as it is written.
std::optional<int> length(std::string_view text)
{
    int number = 0;
    const char* const first = text.data();
    const char* const end = first + text.size();
    const auto [rest, error] = std::from_chars(first, end, number);
    const bool isPlain = error == std::errc() && rest == end && text.front() != '0';
    return isPlain && number >= 10 && number <= 99'999 ? std::optional(number) : std::nullopt;
}

std::optional<QSize> parsed(std::string_view text)
{
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos) {
        return std::nullopt;
    }
    const auto width = length(text.substr(0, cross));
    const auto height = length(text.substr(cross + 1));
    return width && height ? std::optional(QSize(*width, *height)) : std::nullopt;
}

}  // namespace

QSize read(const Tarnwick::DefaultsStore& store, double textScale)
{
    const auto text = Tarnwick::readText(store, key);
    const auto size = text ? parsed(*text) : std::nullopt;
    return size.value_or((firstSize * textScale).toSize());
}

void write(Tarnwick::DefaultsStore& store, const QSize& size)
{
    const QString text = QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    Tarnwick::writeText(store, key, text.toStdString());
}

}  // namespace TarnwickDirect::PanelSize
