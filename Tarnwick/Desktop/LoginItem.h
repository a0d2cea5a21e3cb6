#pragma once

namespace Tarnwick {

/// Whether the program starts at login. Main thread only.
class LoginItem {
public:
    LoginItem() = default;
    LoginItem(const LoginItem&) = delete;
    LoginItem& operator=(const LoginItem&) = delete;
    virtual ~LoginItem() = default;

    virtual bool isEnabled() const = 0;

    /// Throws `std::exception` with a message for the user.
    virtual void registerItem() = 0;

    /// Throws like `registerItem`.
    virtual void unregisterItem() = 0;

    /// Throws like `registerItem`.
    void toggle() { isEnabled() ? unregisterItem() : registerItem(); }
};

}  // namespace Tarnwick
