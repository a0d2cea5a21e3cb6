#include "TarnwickDirect/Application/TarnwickApplication.h"

#include "Tarnwick/Interface/Style/AppFonts.h"
#include "Tarnwick/Interface/Style/AppResources.h"

#include <QGuiApplication>
#include <QIcon>

namespace TarnwickDirect::TarnwickApplication {

void initialize()
{
    Tarnwick::AppFonts::registerBundledFonts();
}

void setWindowIcon()
{
    QGuiApplication::setWindowIcon(QIcon(Tarnwick::AppResources::path(
        QStringLiteral("tarnwick-zap-inner-light-icon"), QStringLiteral("svg"))));
}

}  // namespace TarnwickDirect::TarnwickApplication
