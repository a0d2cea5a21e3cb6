#include "GitHubProvider/SystemLog.h"

#include <syslog.h>

namespace GitHub {

LogSink systemLog()
{
    openlog("tarnwick", 0, LOG_USER);
    return [](const std::string& line) { syslog(LOG_INFO, "%s", line.c_str()); };
}

}  // namespace GitHub
