#pragma once

#include "Support/Names.h"
#include "Support/PullRequests.h"

#include <QTemporaryDir>

#include <filesystem>
#include <functional>
#include <string>

#include <sys/resource.h>

/// What can go wrong with files, for as long as an object lives or a function runs.
namespace TestSupport {

/// A folder that every user may use and that goes away with the object.
class Folder {
public:
    Folder();

    std::filesystem::path path() const;

    std::filesystem::path operator/(const char* name) const { return path() / name; }

    /// The names of what lies in it, in order.
    std::vector<std::string> names() const;

private:
    QTemporaryDir _directory;
};

std::string contentsOf(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, const std::string& contents);

/// Permission bits, such as 0600.
unsigned modeOf(const std::filesystem::path& file);

/// Takes the rights of a superuser away, who could read every file. Others keep theirs.
class OrdinaryUser {
public:
    OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser();

private:
    bool _wasSuperuser;
};

/// No file can grow beyond this size, as on a full disk.
class LargestFile {
public:
    explicit LargestFile(std::size_t bytes);
    LargestFile(const LargestFile&) = delete;
    LargestFile& operator=(const LargestFile&) = delete;
    ~LargestFile();

private:
    rlimit _old{};
    void (*_oldHandler)(int);
};

/// Runs the work in a child process and yields that process's number at once.
pid_t startInOtherProcess(const std::function<void()>& work);

/// Waits for its end; whether it ended well.
bool endedWell(pid_t process);

}  // namespace TestSupport
