#pragma once

#include "PullRequestKit/Date.h"
#include "PullRequestKit/EnumNames.h"
#include "PullRequestKit/Json/Path.h"
#include "PullRequestKit/Url.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace PullRequestKit {
namespace Json {

/// One row of a record's field table: a JSON key and its member. A `std::optional` member may be
/// missing or null, and is not written while empty.
template<typename Record, typename Value>
struct Field {
    std::string_view key;
    Value Record::* member;
    bool isDefaulted = false;  ///< May be missing or null; the member then keeps its initial value.
};

template<typename Record, typename Value>
constexpr Field<Record, Value> field(std::string_view key, Value Record::* member)
{
    return {key, member, false};
}

template<typename Record, typename Value>
constexpr Field<Record, Value> defaultedField(std::string_view key, Value Record::* member)
{
    return {key, member, true};
}

/// The field table of a record, used to read, write and hash it. A record specializes it with
/// `static constexpr std::tuple table{field("key", &Record::member), …}`. Keys are written in this
/// order; unknown keys are ignored. An optional `static void finish(Record&, const
/// boost::json::object&, const Path&)` runs after reading.
template<typename Record>
struct Fields;

template<typename Record>
concept HasFields = requires { Fields<Record>::table; };

}  // namespace Json

/// Hashes a record over all fields of its table.
struct RecordHash {
    template<Json::HasFields Record>
    std::size_t operator()(const Record& record) const
    {
        std::size_t seed = 0;
        std::apply(
            [&](const auto&... fields) { (combine(seed, hash(record.*(fields.member))), ...); },
            Json::Fields<Record>::table);
        return seed;
    }

private:
    /// The hash of an empty optional; unlike zero, it is rarely the hash of a value.
    static constexpr auto absent = static_cast<std::size_t>(0xA5B3E7D19C84F26BU);

    /// `std::hash` of a small number is the number itself, so the bits are mixed here.
    static void combine(std::size_t& seed, std::size_t hash)
    {
        const std::uint64_t mixed = (std::uint64_t{seed} + hash + 1) * 0x9E3779B97F4A7C15U;
        seed = static_cast<std::size_t>(mixed ^ (mixed >> 32U));
    }

    template<typename Value>
    static std::size_t hash(const Value& value)
    {
        if constexpr (Json::HasFields<Value>) {
            return RecordHash{}(value);
        } else {
            return std::hash<Value>{}(value);
        }
    }

    static std::size_t hash(Date date)
    {
        return std::hash<Date::rep>{}(date.time_since_epoch().count());
    }

    static std::size_t hash(const Url& url) { return std::hash<std::string>{}(url.text); }

    template<typename Value>
    static std::size_t hash(const std::optional<Value>& value)
    {
        return value ? hash(*value) : absent;
    }
};

}  // namespace PullRequestKit
