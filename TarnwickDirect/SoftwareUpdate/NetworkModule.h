#pragma once

#include "TarnwickDirect/SoftwareUpdate/HttpsNetwork.h"

namespace TarnwickDirect {

/// Where the network's module of a program in this folder lies.
QString networkModulePath(const QString& programFolder);

/// Makes a network of the module in this file, which is loaded at the first call and stays. Throws
/// `UpdateError` when it cannot be loaded. Main thread only.
std::unique_ptr<HttpsNetwork> networkFromModule(const QString& path);

}  // namespace TarnwickDirect
