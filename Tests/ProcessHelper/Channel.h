#pragma once

#include <string>

namespace ProcessHelper {

/// The helper's side of a test's channel: a folder with the named pipes "fromHelper", which takes
/// lines of text, and "toHelper", which brings one byte for each thing the test lets go on.
class Channel {
public:
    /// Sees to it that the process ends within a minute even when the test has gone away.
    explicit Channel(const std::string& folder);

    void tell(const std::string& line) const;

    /// For `poll`: readable when a release has come.
    int descriptor() const { return _toHelper; }

    /// Waits for the next byte.
    void waitForRelease() const;

private:
    int _fromHelper;
    int _toHelper;
};

/// Has this process end in a minute.
void limitLife();

}  // namespace ProcessHelper
