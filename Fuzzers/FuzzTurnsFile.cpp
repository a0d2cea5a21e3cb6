#include "Fuzzers/Require.h"
#include "Tarnwick/Persistence/KnownTurnsFile.h"

#include <fstream>

#include <unistd.h>

using Tarnwick::KnownTurns;
using Tarnwick::KnownTurnsFile;

/// Any file is read without an error, and its contents are preserved when written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("fuzz-turns-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    const KnownTurnsFile file{folder / "turns.json"};
    std::ofstream(file.path, std::ios::binary) << Fuzzers::textOf(data, size);
    const KnownTurns turns = file.load();
    if (turns != KnownTurns{}) {
        file.save(turns);
        Fuzzers::require(file.load() == turns);
    }
    return 0;
}
