#include "TarnwickDirect/SoftwareUpdate/Network/SystemNetwork.h"

#include <QtGlobal>

/// What the program asks the module for. The caller owns the answer.
extern "C" Q_DECL_EXPORT TarnwickDirect::HttpsNetwork* tarnwickHttpsNetwork()
{
    return new TarnwickDirect::SystemNetwork;
}
