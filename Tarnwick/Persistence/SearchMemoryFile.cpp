#include "Tarnwick/Persistence/SearchMemoryFile.h"

#include "Tarnwick/Persistence/JsonFile.h"

#include <utility>

namespace Tarnwick {

using GitHub::SearchKnowledge;

SearchMemoryFile::SearchMemoryFile(std::filesystem::path file)
    : _file(std::move(file))
{}

std::filesystem::path SearchMemoryFile::beside(const std::filesystem::path& cacheFile)
{
    return cacheFile.parent_path() / "search.json";
}

SearchKnowledge SearchMemoryFile::load() const
{
    const auto knowledge = JsonFile::load<SearchKnowledge>(_file, largestFile);
    return knowledge ? *knowledge : SearchMemory::load();
}

void SearchMemoryFile::save(const SearchKnowledge& knowledge)
{
    SearchMemory::save(knowledge);
    try {
        JsonFile::save(knowledge, _file, "The search memory");
    } catch (const CacheWriteError&) {
        return;
    }
}

}  // namespace Tarnwick
