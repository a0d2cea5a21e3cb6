#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

namespace TarnwickDirect {

/// An interface that the program's object on the session bus has beside its own.
class BusInterface {
public:
    BusInterface() = default;
    BusInterface(const BusInterface&) = delete;
    BusInterface& operator=(const BusInterface&) = delete;
    virtual ~BusInterface() = default;

    /// In the form of D-Bus's introspection.
    virtual QString introspection() const = 0;

    /// Answers a method call that is for this interface. Returns whether it was.
    virtual bool handle(const QDBusMessage& call, const QDBusConnection& bus) = 0;
};

/// Answers with an error, and returns false, when the arguments are not of these types.
bool hasSignature(const QDBusMessage& call, const QDBusConnection& bus, const char* signature);

}  // namespace TarnwickDirect
