#include "TarnwickDirect/CommandLine/WatchLine.h"

#include "PullRequestKit/TurnWording.h"
#include "TarnwickDirect/CommandLine/Terminal.h"
#include "TarnwickDirect/Status/StatusText.h"

#include <algorithm>
#include <boost/json.hpp>
#include <string_view>
#include <vector>

namespace TarnwickDirect {

using namespace PullRequestKit;

namespace {

/// The most urgent first; a list that may be outdated is reported before all else.
enum class BarState {
    stale,
    waiting,
    blocked,
    calm,
};

BarState barStateOf(const Status& status)
{
    if (status.isStale || !status.lastRefreshed) {
        return BarState::stale;
    }
    if (status.waitingOnYou > 0) {
        return BarState::waiting;
    }
    return status.blocked > 0 ? BarState::blocked : BarState::calm;
}

/// Waybar's CSS class.
std::string_view nameOf(BarState state)
{
    switch (state) {
    case BarState::stale:
        return "stale";
    case BarState::waiting:
        return "waiting";
    case BarState::blocked:
        return "blocked";
    case BarState::calm:
        return "calm";
    }
    return {};
}

/// The states that i3status-rust has colors for.
std::string_view i3State(BarState state)
{
    switch (state) {
    case BarState::stale:
    case BarState::blocked:
        return "Warning";
    case BarState::waiting:
        return "Info";
    case BarState::calm:
        break;
    }
    return "Idle";
}

std::string markup(std::string_view text)
{
    std::string escaped;
    for (const char character : text) {
        switch (character) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        case '\'':
            escaped += "&#39;";
            break;
        default:
            escaped += character;
        }
    }
    return escaped;
}

std::string summary(const WatchedList& list, const QDateTime& now, const QLocale& locale)
{
    return statusText(list.status, now, locale).toStdString();
}

/// Enough to fit on a screen.
constexpr std::size_t tooltipRows = 20;

/// The summary and a line for each pull request that waits for the user.
std::string tooltip(const WatchedList& list, const QDateTime& now, const QLocale& locale)
{
    std::string text = summary(list, now, locale);
    std::size_t count = 0;
    for (std::size_t index = 0; index < list.rows.size(); ++index) {
        const PullRequest& pullRequest = list.rows[index].pullRequest;
        const Turn& turn = list.turns[index];
        if (!asksSomething(turn.whose)) {
            continue;
        }
        if (++count > tooltipRows) {
            text += "\n…";
            break;
        }
        text += "\n#" + std::to_string(pullRequest.id.number) + " " + singleLine(pullRequest.title)
                + " — " + singleLine(reasonText(turn));
    }
    return markup(text);
}

std::int64_t percentage(const Status& status)
{
    return status.listed > 0 ? std::int64_t{100} * status.waitingOnYou / status.listed : 0;
}

}  // namespace

std::string watchLine(
    WatchFormat format, const WatchedList& list, const QDateTime& now, const QLocale& locale)
{
    const BarState state = barStateOf(list.status);
    boost::json::object object;
    switch (format) {
    case WatchFormat::json:
        break;
    case WatchFormat::line:
        return summary(list, now, locale);
    case WatchFormat::waybar:
        object["text"] = std::to_string(list.status.waitingOnYou);
        object["alt"] = nameOf(state);
        object["tooltip"] = tooltip(list, now, locale);
        object["class"] = nameOf(state);
        object["percentage"] = percentage(list.status);
        break;
    case WatchFormat::i3:
        object["icon"] = "github";
        object["state"] = i3State(state);
        object["text"] = std::to_string(list.status.waitingOnYou);
        break;
    }
    return boost::json::serialize(object);
}

}  // namespace TarnwickDirect
