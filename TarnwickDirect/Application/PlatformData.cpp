#include "TarnwickDirect/Application/PlatformData.h"

namespace TarnwickDirect {
namespace {

const QString activationTokenKey = QStringLiteral("activation-token");
const QString startupIdKey = QStringLiteral("desktop-startup-id");

}  // namespace

PlatformData PlatformData::from(const QVariantMap& map)
{
    return {
        .activationToken = map.value(activationTokenKey).toString(),
        .startupId = map.value(startupIdKey).toString()};
}

QVariantMap PlatformData::toMap() const
{
    QVariantMap map;
    if (!activationToken.isEmpty()) {
        map.insert(activationTokenKey, activationToken);
    }
    if (!startupId.isEmpty()) {
        map.insert(startupIdKey, startupId);
    }
    return map;
}

PlatformData PlatformData::fromEnvironment()
{
    return {
        .activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN"),
        .startupId = qEnvironmentVariable("DESKTOP_STARTUP_ID")};
}

quint32 PlatformData::startupTime() const
{
    const QString mark = QStringLiteral("_TIME");
    const qsizetype place = startupId.lastIndexOf(mark);
    bool isNumber = false;
    const quint32 time =
        place < 0 ? 0 : QStringView(startupId).mid(place + mark.size()).toUInt(&isNumber);
    return isNumber ? time : 0;
}

}  // namespace TarnwickDirect
