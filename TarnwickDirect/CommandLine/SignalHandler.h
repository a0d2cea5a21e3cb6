#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <optional>

namespace TarnwickDirect {

/// Turns SIGHUP, SIGINT and SIGTERM into a call on the main thread. The signals are handled and not
/// blocked, so programs that this one starts get them as usual. Requires: an event loop, and no
/// other instance.
class SignalHandler final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SignalHandler)

public:
    SignalHandler();
    ~SignalHandler() override;

    /// The signal that has come, if one has.
    std::optional<int> signal() const { return _signal; }

    /// Ends the process by the signal that has come, as its parent expects. Requires: one has.
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
