#include "SampleGitHub/RequestLog.h"

#include <boost/json.hpp>

namespace SampleGitHub {

std::string renderRequest(const RecordedRequest& recorded)
{
    boost::json::object headers;
    for (const auto& [name, value] : recorded.request.headers) {
        headers.emplace(name, value);
    }
    return boost::json::serialize(boost::json::object{
        {"kind", PullRequestKit::nameOf(recorded.kind)},
        {"method", recorded.request.method},
        {"target", recorded.request.target},
        {"headers", std::move(headers)},
        {"body", recorded.request.body}});
}

}  // namespace SampleGitHub
