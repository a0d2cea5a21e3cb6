#pragma once

/// The program's names on the session bus.
namespace TarnwickDirect::BusNames {

inline constexpr const char* service = "dev.tarnwick.Tarnwick";
inline constexpr const char* path = "/dev/tarnwick/Tarnwick";
inline constexpr const char* application = "org.freedesktop.Application";
inline constexpr const char* status = "dev.tarnwick.Tarnwick.Status";
inline constexpr const char* properties = "org.freedesktop.DBus.Properties";

}  // namespace TarnwickDirect::BusNames
