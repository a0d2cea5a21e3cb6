#pragma once

#include "Tarnwick/Desktop/LoginItem.h"

namespace Tarnwick {

/// Stands in where there is no desktop to start the program: it is off, and switching it on fails.
class AbsentLoginItem final : public LoginItem {
public:
    bool isEnabled() const override { return false; }

    void registerItem() override;

    void unregisterItem() override {}
};

}  // namespace Tarnwick
