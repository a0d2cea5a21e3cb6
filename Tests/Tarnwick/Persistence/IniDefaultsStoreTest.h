#pragma once

#include "Persistence/FileTrouble.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"

namespace TestSupport {

/// A store whose file does not exist yet.
class IniDefaultsStoreTest : public testing::Test {
protected:
    IniDefaultsStore open() const { return IniDefaultsStore(file); }

    /// The sentence that a store says of its file.
    std::string problemOf(const char* verb, const char* reason) const
    {
        return "The settings file " + file.string() + " cannot be " + verb + " (" + reason
               + "), so changes to the settings are not saved.";
    }

    Folder folder;
    std::filesystem::path file = folder / "settings.ini";
};

}  // namespace TestSupport
