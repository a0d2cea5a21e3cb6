#include "Tarnwick/Model/RefreshFailure.h"

namespace Tarnwick {

RefreshFailure refreshFailure(const MenuState& state)
{
    if (state.kind == MenuState::Kind::failed || state.isServiceOutOfReach) {
        return RefreshFailure::requestFailed;
    }
    return state.kind == MenuState::Kind::signedOut ? RefreshFailure::signedOut
                                                    : RefreshFailure::ghUnavailable;
}

}  // namespace Tarnwick
