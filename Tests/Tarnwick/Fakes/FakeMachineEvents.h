#pragma once

#include "Tarnwick/Desktop/MachineEvents.h"

namespace TestSupport {

/// A machine that a test wakes.
class FakeMachineEvents final : public Tarnwick::MachineEvents {
public:
    void wake() { Q_EMIT woke(); }

    void returnNetwork() { Q_EMIT networkReturned(); }
};

}  // namespace TestSupport
