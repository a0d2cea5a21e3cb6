#include "TarnwickDirect/Drain.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace TarnwickDirect {

void drain()
{
    // A signal that comes meanwhile is an event.
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
