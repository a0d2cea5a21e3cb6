#pragma once

#include <map>
#include <string>

namespace SampleGitHub {

struct Request {
    std::string method;
    std::string target;                          ///< Path and query.
    std::map<std::string, std::string> headers;  ///< By name in lower case.
    std::string body;
};

struct Response {
    int status = 200;
    std::map<std::string, std::string> headers;  ///< Without content type and length.
    std::string body;
};

}  // namespace SampleGitHub
