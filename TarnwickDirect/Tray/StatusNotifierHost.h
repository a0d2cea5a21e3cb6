#pragma once

#include <QDBusConnection>
#include <QObject>

namespace TarnwickDirect {

/// Whether somebody on the bus shows status notifier items. Asks once and then listens; every call
/// is asynchronous. Main thread only.
class StatusNotifierHost final : public QObject {
    Q_OBJECT

public:
    explicit StatusNotifierHost(const QDBusConnection& bus, QObject* parent = nullptr);

    bool isPresent() const { return _isPresent; }

    /// Begins to ask; `answered` follows in any case.
    void start();

Q_SIGNALS:
    /// The first answer is there.
    void answered();
    void changed();

private:
    void ask();
    void take(bool isPresent);
    Q_SLOT void hostRegistered();

    QDBusConnection _bus;
    bool _isPresent = false;
    bool _hasAnswered = false;
    quint64 _question = 0;  ///< Answers to earlier ones no longer count.
};

}  // namespace TarnwickDirect
