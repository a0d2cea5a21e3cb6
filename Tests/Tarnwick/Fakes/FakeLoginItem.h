#pragma once

#include "Tarnwick/Desktop/LoginItem.h"

#include <stdexcept>
#include <string>

namespace TestSupport {

/// A login item that is a flag. With an error set, changing it throws.
class FakeLoginItem final : public Tarnwick::LoginItem {
public:
    bool isEnabled() const override { return isOn; }

    void registerItem() override { change(true); }

    void unregisterItem() override { change(false); }

    bool isOn = false;
    std::string error;

private:
    void change(bool on)
    {
        if (!error.empty()) {
            throw std::runtime_error(error);
        }
        isOn = on;
    }
};

}  // namespace TestSupport
