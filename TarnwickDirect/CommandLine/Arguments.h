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

/// `tarnwick` without a command: the program on the desktop.
struct ShowPanel {
    enum class Manner {
        show,        ///< Start it, or bring the running one into sight.
        background,  ///< `--background`: start it without its panel.
        toggle,      ///< `--toggle`: show the panel of the running one, or hide it.
        /// `--service`, as the bus starts it: out of sight, without asking GitHub, and only for as
        /// long as it is asked something, unless its panel is wanted.
        service,
    };

    Manner manner = Manner::show;
};

/// `tarnwick list`
struct ListPullRequests {
    bool asJson = false;
    bool isCached = false;  ///< `--cached`: what was last known, without asking.
    bool byTurn = false;    ///< `--by-turn`: whatever the setting says.
    /// `--reviewers`: in the place of the setting, for once.
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

/// What the words after the program's name ask for. Throws `UsageError`.
Command parseArguments(const std::vector<std::string>& arguments);

/// The text of `--help`.
std::string helpText();

}  // namespace TarnwickDirect
