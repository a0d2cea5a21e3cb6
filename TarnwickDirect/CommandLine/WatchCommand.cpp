#include "TarnwickDirect/CommandLine/WatchCommand.h"

#include "TarnwickDirect/CommandLine/LastLine.h"
#include "TarnwickDirect/CommandLine/ListWatch.h"

#include <QCoreApplication>

#include <cerrno>
#include <iostream>
#include <system_error>

#include <unistd.h>

namespace TarnwickDirect {

int watch(const WatchList& command, const SignalHandler& signalHandler)
{
    LastLine output(STDOUT_FILENO);
    int status = 0;
    QObject::connect(&output, &LastLine::ended, qApp, [&status](int error) {
        if (error != EPIPE) {
            std::cerr << "Cannot write to standard output ("
                      << std::generic_category().message(error) << ").\n";
            status = 1;
        }
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QObject::connect(&signalHandler, &SignalHandler::interrupted, qApp, &QCoreApplication::quit);
    const ListWatch list(command.format, output);
    QCoreApplication::exec();
    return status;
}

}  // namespace TarnwickDirect
