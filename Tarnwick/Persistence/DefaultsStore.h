#pragma once

#include "PullRequestKit/Date.h"

#include <QString>
#include <QVariant>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tarnwick {

/// The user's settings as a table from keys to values. Main thread only.
///
/// A value comes back as its own type or as what an INI file makes of it: text in place of flags
/// and numbers, plain text in place of a list of one, an invalid variant in place of an empty list.
/// The readers below take all of these forms.
class DefaultsStore {
public:
    DefaultsStore() = default;
    DefaultsStore(const DefaultsStore&) = delete;
    DefaultsStore& operator=(const DefaultsStore&) = delete;
    virtual ~DefaultsStore() = default;

    /// What is stored under the key, or nothing when the key is absent.
    virtual std::optional<QVariant> value(const QString& key) const = 0;

    /// Stores a flag, an integer, text, a list of text or a date. Never fails towards the caller:
    /// from here on `value` yields what was set, and `problem` tells when it could not be kept.
    virtual void set(const QString& key, const QVariant& value) = 0;

    /// Takes the key out, so that it is absent. Fails as `set` does.
    virtual void remove(const QString& key) = 0;

    /// The keys that begin with `prefix`, each once.
    virtual std::vector<QString> keys(const QString& prefix) const = 0;

    /// Another number than before whenever something else is stored than this process has read and
    /// written.
    virtual std::uint64_t revision() const = 0;

    /// Runs `changes`, once in any case, as one step that no other process comes between: what is
    /// stored is read first, and everything that `changes` sets and removes is stored together at
    /// the end. Requires: `changes` throws nothing.
    virtual void change(const std::function<void()>& changes) = 0;

    /// Reads again if another process changed what is stored.
    virtual void refresh() = 0;

    /// What is wrong with the store itself, as one English sentence for the user, or nothing.
    virtual std::optional<QString> problem() const { return std::nullopt; }
};

/// The readers yield nothing when the key is absent or holds another type.

/// A flag; "true", "1", "false" and "0" are read as well, in any case of letters.
std::optional<bool> readFlag(const DefaultsStore& store, const QString& key);

/// An integer; its decimal text is read as well.
std::optional<std::int64_t> readInteger(const DefaultsStore& store, const QString& key);

std::optional<std::string> readText(const DefaultsStore& store, const QString& key);
std::optional<std::vector<std::string>> readTextList(
    const DefaultsStore& store, const QString& key);

/// A date, without its fraction of a second. Its text is another type.
std::optional<PullRequestKit::Date> readDate(const DefaultsStore& store, const QString& key);

void writeFlag(DefaultsStore& store, const QString& key, bool flag);
void writeInteger(DefaultsStore& store, const QString& key, std::int64_t number);
void writeText(DefaultsStore& store, const QString& key, const std::string& text);
void writeDate(DefaultsStore& store, const QString& key, PullRequestKit::Date date);

/// Stores the texts in the order given.
template<typename Texts>
void writeTextList(DefaultsStore& store, const QString& key, const Texts& texts)
{
    QStringList list;
    for (const std::string& text : texts) {
        list.append(QString::fromStdString(text));
    }
    store.set(key, list);
}

}  // namespace Tarnwick
