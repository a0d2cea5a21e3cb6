#include "Tarnwick/Persistence/SearchMemoryFile.h"

#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/Json/Writing.h"
#include "Tarnwick/Persistence/Files.h"

#include <exception>
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
    try {
        if (const auto text = Files::read(_file, largestFile)) {
            return PullRequestKit::Json::decode<SearchKnowledge>(*text);
        }
    } catch (const std::exception&) {
        return SearchMemory::load();
    }
    return SearchMemory::load();
}

void SearchMemoryFile::save(const SearchKnowledge& knowledge)
{
    SearchMemory::save(knowledge);
    try {
        Files::replace(_file, PullRequestKit::Json::encode(knowledge), Files::ownerOnly);
    } catch (const std::exception&) {
        return;
    }
}

}  // namespace Tarnwick
