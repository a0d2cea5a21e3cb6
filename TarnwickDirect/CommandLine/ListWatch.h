#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Persistence/FileWatcher.h"
#include "TarnwickDirect/CommandLine/LastLine.h"
#include "TarnwickDirect/CommandLine/WatchFormat.h"
#include "TarnwickDirect/Status/RunningProgram.h"

#include <QTimer>

#include <chrono>
#include <string>
#include <vector>

namespace TarnwickDirect {

/// Writes a line for each state of the list: the numbers are those of the running program; what
/// stands on disk tells the rest, and everything where no program runs. Main thread only.
class ListWatch final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ListWatch)

public:
    /// Requires: `output` lives longer.
    ListWatch(WatchFormat format, LastLine& output);
    ~ListWatch() override = default;

private:
    void readFiles();
    void show();
    Status current();

    WatchFormat _format;
    LastLine& _output;
    RunningProgram _program;
    Tarnwick::FileWatcher _cache;
    Tarnwick::FileWatcher _settings;
    QTimer _staleTimer;  ///< Runs only while no program does.
    std::vector<PullRequestKit::PullRequestRow> _rows;
    std::vector<PullRequestKit::Turn> _turns;
    Status _onDisk;
    std::chrono::seconds _interval{0};  ///< Between two refreshes.
    std::string _json;
    std::string _shown;
};

}  // namespace TarnwickDirect
