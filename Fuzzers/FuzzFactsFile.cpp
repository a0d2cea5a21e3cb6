#include "Fuzzers/Require.h"
#include "Tarnwick/Persistence/PullRequestFactsFile.h"

#include <fstream>

#include <unistd.h>

using Tarnwick::KeptFacts;
using Tarnwick::PullRequestFactsFile;

/// Any file is read without an error, and its contents are preserved when written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("fuzz-facts-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    const PullRequestFactsFile file{folder / "pull-request-facts.json"};
    std::ofstream(file.path, std::ios::binary) << Fuzzers::textOf(data, size);
    const KeptFacts kept = file.load();
    if (kept.facts) {
        file.save(kept);
        const KeptFacts again = file.load();
        Fuzzers::require(again.facts && *again.facts == *kept.facts && again.quota == kept.quota);
    }
    return 0;
}
