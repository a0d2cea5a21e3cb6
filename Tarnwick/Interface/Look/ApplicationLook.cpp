#include "Tarnwick/Interface/Look/ApplicationLook.h"

#include "Tarnwick/Interface/Look/Appearance.h"
#include "Tarnwick/Interface/Look/ApplicationStyle.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

namespace Tarnwick {
namespace {

QPalette qtPalette(const Palette& colours)
{
    QPalette palette(colours.button, colours.surfaceChrome);
    palette.setColor(QPalette::WindowText, colours.textPrimary);
    palette.setColor(QPalette::Text, colours.textPrimary);
    palette.setColor(QPalette::ButtonText, colours.textPrimary);
    palette.setColor(QPalette::Base, colours.surfaceList);
    palette.setColor(QPalette::AlternateBase, colours.surfaceChrome);
    palette.setColor(QPalette::PlaceholderText, colours.textTertiary);
    palette.setColor(QPalette::Highlight, colours.accent);
    palette.setColor(QPalette::HighlightedText, colours.onAccent);
    palette.setColor(QPalette::Link, colours.textLink);
    palette.setColor(QPalette::ToolTipBase, colours.surfaceMenu);
    palette.setColor(QPalette::ToolTipText, colours.textPrimary);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colours.textTertiary);
    }
    return palette;
}

}  // namespace

void setApplicationStyle(const Appearance& appearance)
{
    QApplication::setStyle(new ApplicationStyle(appearance));
}

void applyToApplication(const Appearance& appearance)
{
    const QPalette palette = qtPalette(appearance.palette());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    QToolTip::setFont(appearance.line(TextStyle::caption, TextWeight::regular).font);
}

}  // namespace Tarnwick
