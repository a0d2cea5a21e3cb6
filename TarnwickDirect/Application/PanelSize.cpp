#include "TarnwickDirect/Application/PanelSize.h"

#include <QRegularExpression>

namespace TarnwickDirect::PanelSize {
namespace {

/// Stored: do not rename.
const QString key = QStringLiteral("panel.size");

constexpr QSizeF firstSize(440, 620);

}  // namespace

QSize read(const Tarnwick::DefaultsStore& store, double textScale)
{
    static const QRegularExpression form(QStringLiteral("^([1-9][0-9]{1,4})x([1-9][0-9]{1,4})$"));
    const auto text = Tarnwick::readText(store, key);
    if (text) {
        const auto match = form.match(QString::fromStdString(*text));
        if (match.hasMatch()) {
            return {match.captured(1).toInt(), match.captured(2).toInt()};
        }
    }
    return (firstSize * textScale).toSize();
}

void write(Tarnwick::DefaultsStore& store, const QSize& size)
{
    const QString text = QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    Tarnwick::writeText(store, key, text.toStdString());
}

}  // namespace TarnwickDirect::PanelSize
