#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace PullRequestKit::Json {

/// The place of a value in a document, as a chain of objects on the call stack. It costs nothing
/// until `text` is called. A path must not outlive its parent.
class Path {
public:
    Path() = default;

    Path member(std::string_view key) const { return Path(this, key, 0); }

    Path element(std::size_t index) const { return Path(this, {}, index); }

    /// Such as `data.search.nodes[3].number`; empty for the document itself.
    std::string text() const;

private:
    Path(const Path* parent, std::string_view key, std::size_t index)
        : _parent(parent)
        , _key(key)
        , _index(index)
    {}

    const Path* _parent = nullptr;
    std::string_view _key;  ///< Empty for a list element.
    std::size_t _index = 0;
};

}  // namespace PullRequestKit::Json
