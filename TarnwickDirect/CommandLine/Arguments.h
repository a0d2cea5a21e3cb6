#pragma once

#include "Tarnwick/Model/Filters.h"
#include "TarnwickDirect/CommandLine/WatchFormat.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace TarnwickDirect {

struct ShowHelp {};

struct ShowVersion {};

/// `tarnwick` without a command.
struct ShowPanel {
    enum class Manner {
        show,        ///< Start it, or show the running instance.
        background,  ///< `--background`: start it without its panel.
        toggle,      ///< `--toggle`: show or hide the panel.
        /// `--service`, as started by the bus: hidden, without refreshes, and only while it is
        /// called, unless the panel is requested.
        service,
    };

    Manner manner = Manner::show;
};

/// `tarnwick list`
struct ListPullRequests {
    bool asJson = false;
    bool isCached = false;  ///< `--cached`: the stored list, without a refresh.
    bool byTurn = false;    ///< `--by-turn`: overrides the setting.
    /// `--reviewers`: overrides the setting.
    std::optional<Tarnwick::ReviewerFilter> reviewers = std::nullopt;
};

/// `tarnwick watch`
struct WatchList {
    WatchFormat format = WatchFormat::json;
};

/// `tarnwick repositories`
struct ListRepositories {
    bool asJson = false;
};

/// `tarnwick repositories select` and `… unselect`
struct ChangeSelection {
    bool select = true;
    bool all = false;
    std::vector<std::string> names;  ///< Empty with `all`, else at least one.
};

using Command = std::variant<
    ShowHelp,
    ShowVersion,
    ShowPanel,
    ListPullRequests,
    WatchList,
    ListRepositories,
    ChangeSelection>;

/// Invalid usage; the text is one sentence for the user.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws `UsageError`.
Command parseArguments(const std::vector<std::string>& arguments);

std::string helpText();

}  // namespace TarnwickDirect
