#include "TarnwickDirect/Drain.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace TarnwickDirect {

void drain()
{
    // Signals are processed as events meanwhile.
    constexpr int milliseconds = 50;
    QThreadPool& pool = *QThreadPool::globalInstance();
    do {
        while (!pool.waitForDone(milliseconds)) {
            QCoreApplication::processEvents();
        }
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } while (pool.activeThreadCount() > 0);
}

}  // namespace TarnwickDirect
