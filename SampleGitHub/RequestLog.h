#pragma once

#include "SampleGitHub/Server.h"

#include <string>

namespace SampleGitHub {

/// One line of JSON without line feed: kind, method, target, headers, body. Safe from any thread.
std::string renderRequest(const RecordedRequest& recorded);

}  // namespace SampleGitHub
