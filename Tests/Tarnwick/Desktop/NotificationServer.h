#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <string>
#include <vector>

namespace TestSupport {

/// A notification server that a test scripts: it writes down what it is to show, and sends the
/// signals that the test asks for.
class NotificationServer final
    : public QObject
    , protected QDBusContext {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NotificationServer)
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Shown {
        quint32 id = 0;
        quint32 replacedId = 0;
        std::string application;
        std::string icon;
        std::string summary;
        std::string body;
        std::vector<std::string> actions;
        QVariantMap hints;
        int timeout = 0;
    };

    explicit NotificationServer(QDBusConnection bus);
    ~NotificationServer() override;

    void invoke(quint32 id, const QString& action) { Q_EMIT ActionInvoked(id, action); }

    void giveToken(quint32 id, const QString& token) { Q_EMIT ActivationToken(id, token); }

    void close(quint32 id) { Q_EMIT NotificationClosed(id, 2); }

    QStringList capabilities{
        QStringLiteral("actions"),
        QStringLiteral("body"),
        QStringLiteral("body-markup"),
        QStringLiteral("sound")};
    bool refuses = false;
    std::vector<Shown> shown;
    int capabilityQuestions = 0;

public Q_SLOTS:
    // The names are those of the interface.
    // NOLINTBEGIN(readability-identifier-naming)
    QStringList GetCapabilities();
    quint32 Notify(
        const QString& application,
        quint32 replacedId,
        const QString& icon,
        const QString& summary,
        const QString& body,
        const QStringList& actions,
        const QVariantMap& hints,
        int timeout);

Q_SIGNALS:
    void ActionInvoked(quint32 id, const QString& action);
    void ActivationToken(quint32 id, const QString& token);
    void NotificationClosed(quint32 id, quint32 reason);
    // NOLINTEND(readability-identifier-naming)

private:
    QDBusConnection _bus;
    quint32 _lastId = 40;
};

}  // namespace TestSupport
