#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <stop_token>

namespace TarnwickDirect {

/// The output of a program; empty if it fails, is missing, exceeds 30 seconds or is stopped.
/// Blocks; call on a worker thread.
QString outputOf(
    const QString& program, const QStringList& arguments, const std::stop_token& stopToken);

using RunCommand = std::function<QString(const QString& program, const QStringList& arguments)>;

}  // namespace TarnwickDirect
