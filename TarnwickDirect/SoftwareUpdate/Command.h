#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <stop_token>

namespace TarnwickDirect {

/// What a program prints, or an empty text when it fails, takes more than 30 seconds, is not there,
/// or is no longer wanted. Blocks; call on a worker thread.
QString outputOf(
    const QString& program, const QStringList& arguments, const std::stop_token& stopToken);

/// Runs a program as `outputOf` does.
using RunCommand = std::function<QString(const QString& program, const QStringList& arguments)>;

}  // namespace TarnwickDirect
