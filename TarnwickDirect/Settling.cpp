#include "TarnwickDirect/Settling.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace TarnwickDirect {

void settle()
{
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace TarnwickDirect
