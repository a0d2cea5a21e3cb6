#pragma once

#include <QString>
#include <QVariant>

#include <optional>
#include <string>
#include <string_view>

/// Keys and values as they stand in the settings file, in UTF-8 and on one line each. Pure
/// functions; safe from any thread.
namespace Tarnwick::IniValue {

/// Letters, digits and "-", "_", "." as they are, every other byte as "%" and its two digits. No
/// two keys become one.
std::string encodeKey(const QString& key);

/// The key that this stands for; nothing where it stands for none.
std::optional<QString> decodeKey(std::string_view text);

/// Flags and integers as their text, texts as themselves or in quotes, lists with commas, the empty
/// list as "@Empty()" and dates such as "@Date(2024-05-01T09:30:00Z)".
/// Requires: one of these types.
std::string encode(const QVariant& value);

/// Text, a list of at least two texts, the empty list or a date. Flags and integers come back as
/// their text, and a list of one as the text in it. Whatever the bytes are, they mean something;
/// those that are not UTF-8 become U+FFFD.
QVariant decode(std::string_view text);

}  // namespace Tarnwick::IniValue
