#pragma once

#include "TarnwickDirect/Application/BusInterface.h"
#include "TarnwickDirect/Search/SearchSource.h"

namespace TarnwickDirect {

/// org.gnome.Shell.SearchProvider2, the search of GNOME's overview. Main thread only.
class GnomeSearch final : public BusInterface {
public:
    explicit GnomeSearch(SearchSource source);

    QString introspection() const override;
    bool handle(const QDBusMessage& call, const QDBusConnection& bus) override;

private:
    QStringList keysOf(const QStringList& terms) const;
    QList<QVariantMap> describe(const QStringList& keys) const;
    void answer(const QDBusMessage& call, const QDBusConnection& bus);

    SearchSource _source;
};

}  // namespace TarnwickDirect
