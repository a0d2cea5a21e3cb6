#include "PullRequestKit/Json/Path.h"

namespace PullRequestKit::Json {

std::string Path::text() const
{
    if (_parent == nullptr) {
        return {};
    }
    std::string text = _parent->text();
    if (_key.empty()) {
        return text + "[" + std::to_string(_index) + "]";
    }
    if (!text.empty()) {
        text += '.';
    }
    return text + std::string(_key);
}

}  // namespace PullRequestKit::Json
