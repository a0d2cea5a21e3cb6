#pragma once

#include "GitHubProvider/Process/FileDescriptor.h"

#include <filesystem>
#include <string>

/// The test's side of a channel to the process helper, which gets `folder()` as an argument.
/// Everything waits for at most twenty seconds and throws then, which fails the test.
class HelperChannel {
public:
    HelperChannel();
    ~HelperChannel();

    HelperChannel(const HelperChannel&) = delete;
    HelperChannel& operator=(const HelperChannel&) = delete;

    std::string folder() const { return _folder.string(); }

    /// The next line that a helper told, without its end.
    std::string waitForLine();

    /// Lets one waiting helper go on.
    void release() const;

    /// Waits until no helper has the channel open any more.
    void waitForLastHelper() const;

private:
    std::filesystem::path _folder;
    GitHub::FileDescriptor _fromHelper;
    GitHub::FileDescriptor _toHelper;
};
