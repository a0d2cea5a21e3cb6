#pragma once

#include "TarnwickDirect/SoftwareUpdate/HttpsNetwork.h"

class QNetworkAccessManager;

namespace TarnwickDirect {

/// The network as the system has it, with its proxies. Main thread only.
class SystemNetwork final : public HttpsNetwork {
    Q_DISABLE_COPY_MOVE(SystemNetwork)

public:
    SystemNetwork();

    /// May be called from within a handler of one of its fetches.
    ~SystemNetwork() override;

    std::unique_ptr<Fetch> fetch(FetchRequest request, FetchHandlers handlers) override;

private:
    std::unique_ptr<QNetworkAccessManager> _manager;
};

}  // namespace TarnwickDirect
