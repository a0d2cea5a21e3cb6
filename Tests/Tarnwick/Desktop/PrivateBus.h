#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <string>

namespace TestSupport {

/// A message bus of one test's own, on which nothing can be started but what the test says.
class PrivateBus {
public:
    /// `activatable` is the name that the bus knows how to start: with a program that fails.
    explicit PrivateBus(const std::string& activatable = {});
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    /// A connection of its own, closed with the bus.
    QDBusConnection connect();

    /// Ends the bus.
    void stop();

private:
    QTemporaryDir _folder;
    QProcess _daemon;
    QString _address;
    QStringList _connections;
};

}  // namespace TestSupport
