#include "Fuzzers/Require.h"
#include "Tarnwick/Persistence/BlockedPullRequestsFile.h"

#include <fstream>

#include <unistd.h>

using Tarnwick::BlockedPullRequests;
using Tarnwick::BlockedPullRequestsFile;

/// Any file is read without an error, and its contents are preserved when written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("fuzz-blocked-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    const BlockedPullRequestsFile file{folder / "blocked.json"};
    std::ofstream(file.path, std::ios::binary) << Fuzzers::textOf(data, size);
    const BlockedPullRequests blocked = file.load();
    if (blocked != BlockedPullRequests{}) {
        file.save(blocked);
        Fuzzers::require(file.load() == blocked);
    }
    return 0;
}
