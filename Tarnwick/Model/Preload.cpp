#include "Tarnwick/Model/Preload.h"

#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

#include <utility>

namespace Tarnwick {

Preload::Preload(
    OpenDefaults openDefaults, PullRequestDiskCache cache, std::function<void()> findFonts)
    : _read(std::async(
          std::launch::async,
          [openDefaults = std::move(openDefaults)] {
              auto defaults = openDefaults();
              const Settings settings = SettingsStore(*defaults).load();
              return Read{std::move(defaults), settings};
          }))
    , _list(std::async(
          std::launch::async,
          [read = _read, cache = std::move(cache)] {
              auto snapshot = cache.load();
              auto details = snapshot ? PullRequestDetailsFile::beside(cache).load(*snapshot)
                                      : PullRequestKit::DetailsByID();
              const Settings& settings = read.get().settings;
              auto facts = snapshot ? neededFacts(cache, settings) : KeptFacts();
              return lastList(std::move(snapshot), std::move(details), std::move(facts), settings);
          }))
    , _fonts(std::async(std::launch::async, std::move(findFonts)))
{}

std::optional<LastList> Preload::takeList()
{
    auto list = _list.get();
    _read = {};
    return list;
}

}  // namespace Tarnwick
