#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace PullRequestKit {

/// An immutable text whose copies share its memory. Compares by content. Safe from any thread.
class SharedText {
public:
    SharedText() = default;

    /// Not shared; see `SharedTexts`.
    SharedText(std::string text)  // NOLINT(google-explicit-constructor): it is a text.
        : _text(std::make_shared<const std::string>(std::move(text)))
    {}

    SharedText(const char* text)  // NOLINT(google-explicit-constructor): it is a text.
        : SharedText(std::string(text))
    {}

    const std::string& text() const
    {
        static const std::string empty;
        return _text ? *_text : empty;
    }

    bool operator==(const SharedText& other) const
    {
        return _text == other._text || text() == other.text();
    }

private:
    std::shared_ptr<const std::string> _text;
};

/// Returns one `SharedText` for all equal texts. Belongs to one thread; results may outlive it.
class SharedTexts {
public:
    SharedText share(std::string_view text)
    {
        const auto found = _known.find(text);
        if (found != _known.end()) {
            return found->second;
        }
        SharedText shared{std::string(text)};
        _known.emplace(shared.text(), shared);
        return shared;
    }

private:
    std::unordered_map<std::string_view, SharedText> _known;  ///< The keys point into the values.
};

}  // namespace PullRequestKit
