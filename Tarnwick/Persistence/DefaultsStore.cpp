#include "Tarnwick/Persistence/DefaultsStore.h"

#include <QDateTime>
#include <QMetaType>
#include <QStringList>
#include <QTimeZone>

namespace Tarnwick {
namespace {

bool isText(const QVariant& value)
{
    return value.typeId() == QMetaType::QString;
}

bool isInteger(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return true;
    default:
        return false;
    }
}

std::optional<bool> flagNamed(const QString& text)
{
    if (text == u"1" || text.compare(u"true", Qt::CaseInsensitive) == 0) {
        return true;
    }
    if (text == u"0" || text.compare(u"false", Qt::CaseInsensitive) == 0) {
        return false;
    }
    return std::nullopt;
}

}  // namespace

std::optional<bool> readFlag(const DefaultsStore& store, const QString& key)
{
    const auto value = store.value(key);
    if (!value) {
        return std::nullopt;
    }
    if (value->typeId() == QMetaType::Bool) {
        return value->toBool();
    }
    return isText(*value) || isInteger(*value) ? flagNamed(value->toString()) : std::nullopt;
}

std::optional<std::int64_t> readInteger(const DefaultsStore& store, const QString& key)
{
    const auto value = store.value(key);
    if (!value || !(isText(*value) || isInteger(*value))) {
        return std::nullopt;
    }
    bool isNumber = false;
    const qlonglong number = value->toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

std::optional<std::string> readText(const DefaultsStore& store, const QString& key)
{
    const auto value = store.value(key);
    return value && isText(*value) ? std::optional(value->toString().toStdString()) : std::nullopt;
}

std::optional<std::vector<std::string>> readTextList(const DefaultsStore& store, const QString& key)
{
    const auto value = store.value(key);
    if (!value) {
        return std::nullopt;
    }
    std::vector<std::string> texts;
    if (isText(*value)) {
        texts.push_back(value->toString().toStdString());
    } else if (value->typeId() == QMetaType::QStringList) {
        for (const QString& text : value->toStringList()) {
            texts.push_back(text.toStdString());
        }
    } else if (value->isValid()) {
        return std::nullopt;
    }
    return texts;
}

std::optional<PullRequestKit::Date> readDate(const DefaultsStore& store, const QString& key)
{
    const auto value = store.value(key);
    if (!value || value->typeId() != QMetaType::QDateTime || !value->toDateTime().isValid()) {
        return std::nullopt;
    }
    const std::chrono::milliseconds sinceEpoch{value->toDateTime().toMSecsSinceEpoch()};
    return PullRequestKit::Date{std::chrono::floor<std::chrono::seconds>(sinceEpoch)};
}

void writeFlag(DefaultsStore& store, const QString& key, bool flag)
{
    store.set(key, flag);
}

void writeInteger(DefaultsStore& store, const QString& key, std::int64_t number)
{
    store.set(key, QVariant::fromValue<qlonglong>(number));
}

void writeText(DefaultsStore& store, const QString& key, const std::string& text)
{
    store.set(key, QString::fromStdString(text));
}

void writeDate(DefaultsStore& store, const QString& key, PullRequestKit::Date date)
{
    store.set(key, QDateTime::fromSecsSinceEpoch(date.time_since_epoch().count()).toUTC());
}

}  // namespace Tarnwick
