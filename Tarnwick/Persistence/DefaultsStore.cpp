#include "Tarnwick/Persistence/DefaultsStore.h"

#include "Tarnwick/Persistence/IniValue.h"

#include <QString>

namespace Tarnwick {

std::optional<bool> readFlag(const DefaultsStore& store, std::string_view key)
{
    const QString text = QString::fromStdString(readText(store, key).value_or("")).toLower();
    if (text == u"1" || text == u"true") {
        return true;
    }
    return text == u"0" || text == u"false" ? std::optional(false) : std::nullopt;
}

std::optional<std::int64_t> readInteger(const DefaultsStore& store, std::string_view key)
{
    bool isNumber = false;
    const qlonglong number =
        QString::fromStdString(readText(store, key).value_or("")).toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

std::optional<std::string> readText(const DefaultsStore& store, std::string_view key)
{
    const auto texts = readTextList(store, key);
    return texts && texts->size() == 1 ? std::optional(texts->front()) : std::nullopt;
}

std::optional<std::vector<std::string>> readTextList(
    const DefaultsStore& store, std::string_view key)
{
    const auto value = store.value(key);
    return value && !IniValue::decodeDate(*value) ? std::optional(IniValue::decodeList(*value))
                                                  : std::nullopt;
}

std::optional<PullRequestKit::Date> readDate(const DefaultsStore& store, std::string_view key)
{
    const auto value = store.value(key);
    return value ? IniValue::decodeDate(*value) : std::nullopt;
}

void writeFlag(DefaultsStore& store, std::string_view key, bool flag)
{
    store.set(key, flag ? "true" : "false");
}

void writeInteger(DefaultsStore& store, std::string_view key, std::int64_t number)
{
    store.set(key, std::to_string(number));
}

void writeText(DefaultsStore& store, std::string_view key, std::string_view text)
{
    store.set(key, IniValue::encodeText(text));
}

void writeTextList(
    DefaultsStore& store, std::string_view key, const std::vector<std::string>& texts)
{
    store.set(key, IniValue::encodeList(texts));
}

void writeDate(DefaultsStore& store, std::string_view key, PullRequestKit::Date date)
{
    store.set(key, IniValue::encodeDate(date));
}

}  // namespace Tarnwick
