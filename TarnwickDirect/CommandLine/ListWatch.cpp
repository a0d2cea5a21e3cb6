#include "TarnwickDirect/CommandLine/ListWatch.h"

#include "Tarnwick/Persistence/IniDefaultsStore.h"
#include "Tarnwick/StandardCollaborators.h"
#include "TarnwickDirect/CommandLine/ListJson.h"
#include "TarnwickDirect/CommandLine/WatchLine.h"
#include "TarnwickDirect/Environment.h"
#include "TarnwickDirect/Memory.h"

#include <sstream>

namespace TarnwickDirect {

using namespace std::chrono_literals;
using Tarnwick::FileWatcher;
using Tarnwick::PullRequestMenuModel;

namespace {

/// The cache is replaced as a whole, so a short delay is enough.
constexpr std::chrono::milliseconds cacheRest{20};

}  // namespace

ListWatch::ListWatch(WatchFormat format, LastLine& output)
    : _format(format)
    , _output(output)
    , _cache(Tarnwick::PullRequestDiskCache::defaultFile(), cacheRest)
    , _settings(Tarnwick::IniDefaultsStore::defaultFile())
{
    _staleTimer.setSingleShot(true);
    _staleTimer.setTimerType(Qt::VeryCoarseTimer);
    connect(&_staleTimer, &QTimer::timeout, this, &ListWatch::show);
    connect(&_program, &RunningProgram::changed, this, &ListWatch::show);
    for (FileWatcher* const file : {&_cache, &_settings}) {
        connect(file, &FileWatcher::changed, this, [this] {
            readFiles();
            _program.lookForBus();
            show();
        });
    }
    readFiles();
    show();
}

/// A new model shows what is on disk. It is destroyed before it could refresh.
void ListWatch::readFiles()
{
    {
        PullRequestMenuModel model(Tarnwick::standardCollaborators(environment()));
        _turns = model.list().turns();
        _rows = model.rows();
        _onDisk = countedStatus(_rows, _turns);
        _onDisk.lastRefreshed = model.lastRefreshed();
        _interval = Tarnwick::secondsOf(model.settings().pollingInterval);
        if (_format == WatchFormat::json) {
            std::ostringstream text;
            writeListJson(text, model, *model.list().arranged());
            _json = text.str();
            _json.pop_back();  // The line feed.
        }
    }
    Memory::giveBack();
}

/// Before its first refresh, the program knows less than the files. Without a program, the files
/// are stale after two missed refreshes.
Status ListWatch::current()
{
    _staleTimer.stop();
    if (const auto& told = _program.status(); told && told->lastRefreshed) {
        return *told;
    }
    Status status = _onDisk;
    if (status.lastRefreshed) {
        const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
        const std::chrono::seconds rest = *status.lastRefreshed + 2 * _interval - now;
        status.isStale = rest <= 0s;
        if (rest > 0s) {
            _staleTimer.start(rest);
        }
    }
    return status;
}

void ListWatch::show()
{
    const Status status = current();
    const std::string line = _format == WatchFormat::json
                                 ? _json
                                 : watchLine(
                                       _format,
                                       {.status = status, .rows = _rows, .turns = _turns},
                                       QDateTime::currentDateTime(),
                                       QLocale());
    if (_shown != line) {
        _shown = line;
        _output.write(line);
    }
}

}  // namespace TarnwickDirect
