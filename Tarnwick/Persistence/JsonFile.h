#pragma once

#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/Json/Writing.h"
#include "Tarnwick/Persistence/Files.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <exception>
#include <optional>
#include <string>
#include <system_error>

/// JSON documents in files of their own. All functions block and are safe from any thread.
namespace Tarnwick::JsonFile {

/// Nothing when the file is missing, unreadable, invalid or larger than `limit`. Never throws.
template<typename Document>
std::optional<Document> load(const std::filesystem::path& path, std::size_t limit) noexcept
{
    try {
        const auto text = Files::read(path, limit);
        return text ? std::optional(PullRequestKit::Json::decode<Document>(*text)) : std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

/// The same for a document with a `version`; other versions count as absent.
template<typename Document>
std::optional<Document> loadVersion(
    std::int64_t version, const std::filesystem::path& path, std::size_t limit) noexcept
{
    auto document = load<Document>(path, limit);
    return document && document->version == version ? std::move(document) : std::nullopt;
}

/// Replaces the file, readable by its owner only. Throws `CacheWriteError`: "SUBJECT could not be
/// kept in PATH: REASON."; the old file is then unchanged.
template<typename Document>
void save(const Document& document, const std::filesystem::path& path, const std::string& subject)
{
    const std::string text = PullRequestKit::Json::encode(document);
    try {
        Files::replace(path, text, Files::ownerOnly);
    } catch (const std::system_error& error) {
        throw CacheWriteError(
            subject + " could not be saved in " + path.string() + ": " + error.code().message()
            + ".");
    }
}

}  // namespace Tarnwick::JsonFile
