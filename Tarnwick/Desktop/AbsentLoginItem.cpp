#include "Tarnwick/Desktop/AbsentLoginItem.h"

#include <stdexcept>

namespace Tarnwick {

void AbsentLoginItem::registerItem()
{
    throw std::runtime_error("There is no desktop session to start the program.");
}

}  // namespace Tarnwick
