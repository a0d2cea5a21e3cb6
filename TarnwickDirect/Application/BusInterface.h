#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

namespace TarnwickDirect {

/// A further D-Bus interface of the program's object.
class BusInterface {
public:
    BusInterface() = default;
    BusInterface(const BusInterface&) = delete;
    BusInterface& operator=(const BusInterface&) = delete;
    virtual ~BusInterface() = default;

    /// The interface as introspection XML.
    virtual QString introspection() const = 0;

    /// Answers a method call of this interface. Returns false for other calls.
    virtual bool handle(const QDBusMessage& call, const QDBusConnection& bus) = 0;
};

/// Replies with an error and returns false if the arguments have other types.
bool hasSignature(const QDBusMessage& call, const QDBusConnection& bus, const char* signature);

}  // namespace TarnwickDirect
