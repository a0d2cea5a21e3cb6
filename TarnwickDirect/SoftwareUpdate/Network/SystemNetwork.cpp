#include "TarnwickDirect/SoftwareUpdate/Network/SystemNetwork.h"

#include "TarnwickDirect/SoftwareUpdate/Network/NetworkFetch.h"

#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>

#include <utility>

namespace TarnwickDirect {

SystemNetwork::SystemNetwork()
{
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    _manager = std::make_unique<QNetworkAccessManager>();
}

SystemNetwork::~SystemNetwork()
{
    _manager.release()->deleteLater();
}

std::unique_ptr<HttpsNetwork::Fetch> SystemNetwork::fetch(
    FetchRequest request, FetchHandlers handlers)
{
    return std::make_unique<NetworkFetch>(*_manager, std::move(request), std::move(handlers));
}

}  // namespace TarnwickDirect
