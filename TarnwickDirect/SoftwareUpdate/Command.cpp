#include "TarnwickDirect/SoftwareUpdate/Command.h"

#include <QDeadlineTimer>
#include <QProcess>

namespace TarnwickDirect {
namespace {

constexpr std::chrono::seconds timeLimit{30};

/// How often the stop token is checked.
constexpr int milliseconds = 50;

}  // namespace

QString outputOf(
    const QString& program, const QStringList& arguments, const std::stop_token& stopToken)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments, QIODevice::ReadOnly);
    const QDeadlineTimer deadline(timeLimit);
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(milliseconds)) {
        if (stopToken.stop_requested() || deadline.hasExpired()) {
            process.kill();
        }
    }
    const bool isDone = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
                        && process.error() != QProcess::FailedToStart;
    return isDone ? QString::fromUtf8(process.readAllStandardOutput()) : QString{};
}

}  // namespace TarnwickDirect
