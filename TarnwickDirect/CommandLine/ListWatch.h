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

/// Writes a line for each state of the list. The numbers come from the running program, the rest,
/// and everything without a running program, from the files. Main thread only.
class ListWatch final : public QObject {
    Q_OBJECT

public:
    /// Requires: `output` outlives it.
    ListWatch(WatchFormat format, LastLine& output);

private:
    void readFiles();
    void show();
    Status current();

    WatchFormat _format;
    LastLine& _output;
    RunningProgram _program;
    Tarnwick::FileWatcher _cache;
    Tarnwick::FileWatcher _settings;
    QTimer _staleTimer;  ///< Active only without a running program.
    std::vector<PullRequestKit::PullRequestRow> _rows;
    std::vector<PullRequestKit::Turn> _turns;
    Status _onDisk;
    std::chrono::seconds _interval{0};  ///< The polling interval.
    std::string _json;
    std::string _shown;
};

}  // namespace TarnwickDirect
