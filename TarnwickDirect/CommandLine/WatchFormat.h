#pragma once

#include "PullRequestKit/EnumNames.h"

namespace TarnwickDirect {

/// The reader of `tarnwick watch`.
enum class WatchFormat {
    json,    ///< A script.
    waybar,  ///< Waybar's module "custom" with "return-type": "json".
    i3,      ///< i3status-rust's block "custom" with json = true.
    line,    ///< A bar that shows the last line unchanged.
};

}  // namespace TarnwickDirect

// Values on the command line.
template<>
struct PullRequestKit::EnumNames<TarnwickDirect::WatchFormat> {
    static constexpr auto names = enumNames<TarnwickDirect::WatchFormat>({
        {TarnwickDirect::WatchFormat::json, "json"},
        {TarnwickDirect::WatchFormat::waybar, "waybar"},
        {TarnwickDirect::WatchFormat::i3, "i3"},
        {TarnwickDirect::WatchFormat::line, "line"},
    });
};
