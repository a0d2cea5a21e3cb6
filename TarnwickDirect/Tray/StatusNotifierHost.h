#pragma once

#include <QDBusConnection>
#include <QObject>

namespace TarnwickDirect {

/// Whether a host for status notifier items is on the bus. Asynchronous. Main thread only.
class StatusNotifierHost final : public QObject {
    Q_OBJECT

public:
    explicit StatusNotifierHost(const QDBusConnection& bus, QObject* parent = nullptr);

    bool isPresent() const { return _isPresent; }

    /// Starts asking; `answered` follows in any case.
    void start();

Q_SIGNALS:
    /// Emitted after the first answer.
    void answered();
    void changed();

private:
    void ask();
    void take(bool isPresent);
    Q_SLOT void hostRegistered();

    QDBusConnection _bus;
    bool _isPresent = false;
    bool _hasAnswered = false;
    quint64 _question = 0;  ///< The current request; earlier ones are ignored.
};

}  // namespace TarnwickDirect
