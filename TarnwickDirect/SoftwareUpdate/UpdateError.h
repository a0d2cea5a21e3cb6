#pragma once

#include <QString>

#include <stdexcept>

namespace TarnwickDirect {

/// An update could not be found, fetched, verified or installed; `message` is the English sentence
/// the user reads, unchanged. `what()` is the same text.
class UpdateError : public std::runtime_error {
public:
    explicit UpdateError(const QString& message)
        : std::runtime_error(message.toStdString())
    {}

    QString message() const { return QString::fromUtf8(what()); }
};

}  // namespace TarnwickDirect
