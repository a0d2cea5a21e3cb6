#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"

#include <utility>

namespace TarnwickDirect {

HttpsFetch::HttpsFetch(HttpsNetwork& network, FetchRequest request)
    : _fetch(network.fetch(
          std::move(request),
          {.received = [this](const QByteArray& bytes) { Q_EMIT received(bytes); },
           .finished = [this] { Q_EMIT finished(); },
           .failed = [this](const QString& message) { Q_EMIT failed(message); }}))
{}

}  // namespace TarnwickDirect
