#pragma once

#include "PullRequestKit/Json/Reading.h"

/// Writes records as JSON values, with keys in the order of the field tables. An empty optional is
/// omitted from an object and null in a list. Safe from any thread.
namespace PullRequestKit::Json {

template<typename Value>
boost::json::value write(const Value& value);

namespace Detail {

template<typename Record, typename Value>
void writeField(
    boost::json::object& object, const Record& record, const Field<Record, Value>& field)
{
    const Value& value = record.*(field.member);
    if constexpr (isOptional<Value>) {
        if (value) {
            object.emplace(field.key, write(*value));
        }
    } else {
        object.emplace(field.key, write(value));
    }
}

}  // namespace Detail

template<HasFields Record>
boost::json::object writeObject(const Record& record)
{
    boost::json::object object;
    object.reserve(Detail::slotCount<Record>);
    std::apply(
        [&](const auto&... fields) { (Detail::writeField(object, record, fields), ...); },
        Fields<Record>::table);
    return object;
}

template<typename Value>
boost::json::value write(const Value& value)
{
    if constexpr (Detail::isOptional<Value>) {
        return value ? write(*value) : boost::json::value(nullptr);
    } else if constexpr (HasFields<Value>) {
        return writeObject(value);
    } else if constexpr (Detail::isVector<Value> || Detail::isSet<Value>) {
        boost::json::array list;
        list.reserve(value.size());
        for (const auto& element : value) {
            list.push_back(write(element));
        }
        return list;
    } else if constexpr (NamedEnum<Value>) {
        return boost::json::value(nameOf(value));
    } else if constexpr (std::is_same_v<Value, Date>) {
        return boost::json::value(formatDate(value));
    } else if constexpr (std::is_same_v<Value, Url>) {
        return boost::json::value(value.text);
    } else {
        return boost::json::value(value);
    }
}

/// Writes a whole document without white space.
template<typename Value>
std::string encode(const Value& value)
{
    return boost::json::serialize(write(value));
}

}  // namespace PullRequestKit::Json
