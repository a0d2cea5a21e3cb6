#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <optional>

namespace TarnwickDirect {

/// Reports SIGHUP, SIGINT and SIGTERM on the main thread. The signals are not blocked, so child
/// processes receive them as usual. Requires: an event loop, and no other instance.
class SignalHandler final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SignalHandler)

public:
    SignalHandler();
    ~SignalHandler() override;

    std::optional<int> signal() const { return _signal; }

    /// Ends the process by the received signal, as its parent expects. Requires: `signal()`.
    [[noreturn]] void endProcess() const;

Q_SIGNALS:
    void interrupted();

private:
    void read();

    int _descriptor = -1;
    std::unique_ptr<QSocketNotifier> _notifier;
    std::optional<int> _signal;
};

}  // namespace TarnwickDirect
