#pragma once

#include "Tarnwick/Desktop/NotificationRequest.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace Tarnwick {

/// The program's visible notifications by the server's ids. Main thread only.
class ShownNotifications {
public:
    struct Entry {
        std::string identifier;
        std::map<std::string, std::string> userInfo;
        std::string activationToken;
    };

    void insert(std::uint32_t id, const NotificationRequest& request)
    {
        _entries.insert_or_assign(id, Entry{request.identifier, request.userInfo, {}});
    }

    /// The id of the notification with this identifier, or 0.
    std::uint32_t idOf(const std::string& identifier) const
    {
        for (const auto& [id, entry] : _entries) {
            if (entry.identifier == identifier) {
                return id;
            }
        }
        return 0;
    }

    /// Null when it is not shown.
    Entry* find(std::uint32_t id)
    {
        const auto found = _entries.find(id);
        return found == _entries.end() ? nullptr : &found->second;
    }

    void erase(std::uint32_t id) { _entries.erase(id); }

    void clear() { _entries.clear(); }

private:
    std::map<std::uint32_t, Entry> _entries;
};

}  // namespace Tarnwick
