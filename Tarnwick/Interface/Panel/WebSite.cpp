#include "Tarnwick/Interface/Panel/WebSite.h"

#include <QUrl>

namespace Tarnwick {

PullRequestKit::Url webSite()
{
    return {TARNWICK_WEB_SITE};
}

QString webSiteToolTip()
{
    return QStringLiteral("Open ") + QUrl(QString::fromStdString(webSite().text)).host();
}

}  // namespace Tarnwick
