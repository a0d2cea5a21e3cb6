#pragma once

#include "SampleGitHub/Server.h"

#include <string>

namespace SampleGitHub {

/// A recorded request as one line of JSON without its line feed: kind, method, target, headers,
/// body. Safe from any thread.
std::string renderRequest(const RecordedRequest& recorded);

}  // namespace SampleGitHub
