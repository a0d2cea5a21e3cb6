#pragma once

#include <QString>

#include <stdexcept>

namespace TarnwickDirect {

/// An update step failed. `message` is an English sentence for the user.
class UpdateError : public std::runtime_error {
public:
    explicit UpdateError(const QString& message)
        : std::runtime_error(message.toStdString())
    {}

    QString message() const { return QString::fromUtf8(what()); }
};

}  // namespace TarnwickDirect
