#pragma once

#include "PullRequestKit/Errors.h"
#include "PullRequestKit/Json/Fields.h"
#include "PullRequestKit/Json/Path.h"

#include <array>
#include <boost/json.hpp>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Reads records from JSON values. Every reader throws `DecodingError` with the path of a value
/// that is missing, of the wrong type or not a known text.
namespace PullRequestKit::Json {

[[noreturn]] void throwDecodingError(const Path& path, const char* problem);

bool readBool(const boost::json::value& value, const Path& path);
std::int64_t readInteger(const boost::json::value& value, const Path& path);
std::string readText(const boost::json::value& value, const Path& path);
Date readDate(const boost::json::value& value, const Path& path);
Url readUrl(const boost::json::value& value, const Path& path);

/// The text without a copy, valid as long as the value.
std::string_view readTextView(const boost::json::value& value, const Path& path);
const boost::json::object& readObject(const boost::json::value& value, const Path& path);
const boost::json::array& readList(const boost::json::value& value, const Path& path);

template<typename Value>
void read(Value& target, const boost::json::value& value, const Path& path);

namespace Detail {

template<typename T>
constexpr bool isOptional = false;
template<typename T>
constexpr bool isOptional<std::optional<T>> = true;

template<typename T>
constexpr bool isVector = false;
template<typename T>
constexpr bool isVector<std::vector<T>> = true;

template<typename T>
constexpr bool isSet = false;
template<typename T>
constexpr bool isSet<std::set<T>> = true;

/// A row of a field table with its types erased.
template<typename Record>
struct Slot {
    std::string_view key;
    void (*read)(Record& record, const boost::json::value& value, const Path& path);
    bool isRequired = false;
};

template<typename Record, std::size_t index>
void readField(Record& record, const boost::json::value& value, const Path& path)
{
    constexpr auto field = std::get<index>(Fields<Record>::table);
    if (!field.isDefaulted || !value.is_null()) {
        read(record.*(field.member), value, path);
    }
}

template<typename Record, std::size_t index>
constexpr Slot<Record> makeSlot()
{
    constexpr auto field = std::get<index>(Fields<Record>::table);
    using Value = std::remove_reference_t<decltype(std::declval<Record&>().*(field.member))>;
    return {field.key, readField<Record, index>, !field.isDefaulted && !isOptional<Value>};
}

template<typename Record>
constexpr std::size_t slotCount =
    std::tuple_size_v<std::remove_cvref_t<decltype(Fields<Record>::table)>>;

template<typename Record>
constexpr auto slots = []<std::size_t... index>(std::index_sequence<index...>) {
    return std::array<Slot<Record>, sizeof...(index)>{makeSlot<Record, index>()...};
}(std::make_index_sequence<slotCount<Record>>{});

/// The position of `key` in the table. Starts at `guess`: documents mostly keep the table's order.
template<typename Record>
std::size_t slotOf(std::string_view key, std::size_t guess)
{
    constexpr std::size_t count = slotCount<Record>;
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t index = guess + step < count ? guess + step : guess + step - count;
        if (slots<Record>[index].key == key) {
            return index;
        }
    }
    return count;
}

template<typename Record>
void readRecord(Record& record, const boost::json::value& value, const Path& path)
{
    constexpr std::size_t count = slotCount<Record>;
    const boost::json::object& object = readObject(value, path);
    std::array<bool, count> seen{};
    std::size_t guess = 0;
    for (const auto& [key, member] : object) {
        const std::size_t index = slotOf<Record>(key, guess);
        if (index < count) {
            slots<Record>[index].read(record, member, path.member(key));
            seen[index] = true;
            guess = index + 1 < count ? index + 1 : 0;
        }
    }
    for (std::size_t index = 0; index < count; ++index) {
        if (slots<Record>[index].isRequired && !seen[index]) {
            throwDecodingError(path.member(slots<Record>[index].key), "is missing");
        }
    }
    if constexpr (requires { Fields<Record>::finish(record, object, path); }) {
        Fields<Record>::finish(record, object, path);
    }
}

/// Whether elements can be read in place, which saves moving large records.
template<typename List>
constexpr bool hasElementsInPlace =
    isVector<List> && std::is_same_v<typename List::reference, typename List::value_type&>;

template<typename List>
void readElements(List& list, const boost::json::value& value, const Path& path)
{
    const boost::json::array& elements = readList(value, path);
    if constexpr (isVector<List>) {
        list.reserve(elements.size());
    }
    std::size_t index = 0;
    for (const boost::json::value& element : elements) {
        if constexpr (hasElementsInPlace<List>) {
            read(list.emplace_back(), element, path.element(index++));
        } else {
            typename List::value_type item{};
            read(item, element, path.element(index++));
            list.insert(list.end(), std::move(item));
        }
    }
}

}  // namespace Detail

/// Reads a value into `target`. Requires: `target` is default-constructed.
template<typename Value>
void read(Value& target, const boost::json::value& value, const Path& path)
{
    if constexpr (Detail::isOptional<Value>) {
        if (!value.is_null()) {
            // Clang 19 does not consider a nested record with initializers default-constructible
            // here, so the value is constructed explicitly.
            read(target.emplace(typename Value::value_type{}), value, path);
        }
    } else if constexpr (Detail::isVector<Value> || Detail::isSet<Value>) {
        Detail::readElements(target, value, path);
    } else if constexpr (HasFields<Value>) {
        Detail::readRecord(target, value, path);
    } else if constexpr (NamedEnum<Value>) {
        const auto named = enumNamed<Value>(readTextView(value, path));
        if (!named) {
            throwDecodingError(path, "is not one of the known values");
        }
        target = *named;
    } else if constexpr (std::is_same_v<Value, Date>) {
        target = readDate(value, path);
    } else if constexpr (std::is_same_v<Value, Url>) {
        target = readUrl(value, path);
    } else if constexpr (std::is_same_v<Value, bool>) {
        target = readBool(value, path);
    } else if constexpr (std::is_same_v<Value, std::int64_t>) {
        target = readInteger(value, path);
    } else {
        static_assert(std::is_same_v<Value, std::string>, "no JSON form");
        target = readText(value, path);
    }
}

/// The member of this name; null when it is missing or null.
const boost::json::value* presentMember(const boost::json::object& object, std::string_view key);

/// A parsed JSON text. All values share one block of memory.
class Document {
public:
    /// Throws `DecodingError` when the text is not one complete JSON document in UTF-8 or is nested
    /// more than 32 levels deep.
    explicit Document(std::string_view text);

    const boost::json::value& root() const { return _root; }

private:
    boost::json::monotonic_resource _memory;
    boost::json::value _root;
};

/// Decodes a whole document. Throws `DecodingError`. Safe from any thread.
template<typename Value>
Value decode(std::string_view text)
{
    const Document document(text);
    Value value{};
    read(value, document.root(), Path());
    return value;
}

}  // namespace PullRequestKit::Json
