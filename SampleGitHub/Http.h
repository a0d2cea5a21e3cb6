#pragma once

#include <map>
#include <string>

namespace SampleGitHub {

/// A request as it came over the socket.
struct Request {
    std::string method;
    std::string target;                          ///< Path and query.
    std::map<std::string, std::string> headers;  ///< By name in lower case.
    std::string body;
};

struct Response {
    int status = 200;
    std::map<std::string, std::string> headers;  ///< Beside content type and length.
    std::string body;
};

}  // namespace SampleGitHub
