#pragma once

namespace Tarnwick {

/// Whether the program starts when the user logs in, as the desktop keeps it. Main thread only.
class LoginItem {
public:
    LoginItem() = default;
    LoginItem(const LoginItem&) = delete;
    LoginItem& operator=(const LoginItem&) = delete;
    virtual ~LoginItem() = default;

    virtual bool isEnabled() const = 0;

    /// Throws `std::exception` with a sentence for the user when the desktop refuses.
    virtual void registerItem() = 0;

    /// Throws as `registerItem` does.
    virtual void unregisterItem() = 0;

    /// Throws as these do.
    void toggle() { isEnabled() ? unregisterItem() : registerItem(); }
};

}  // namespace Tarnwick
