#pragma once

#include <QString>

#include <string>

namespace Tarnwick {

/// Somebody's login as a part of a menu item: of 24 letters at most, none of which turns the
/// direction of the text or marks a key. Safe from any thread.
QString menuName(const std::string& login);

}  // namespace Tarnwick
