#pragma once

#include "TarnwickDirect/Application/BusInterface.h"
#include "TarnwickDirect/Search/SearchSource.h"

namespace TarnwickDirect {

/// org.kde.krunner1, the search of Plasma's launcher. Main thread only.
class KRunnerSearch final : public BusInterface {
public:
    explicit KRunnerSearch(SearchSource source);

    QString introspection() const override;
    bool handle(const QDBusMessage& call, const QDBusConnection& bus) override;

private:
    void match(const QDBusMessage& call, const QDBusConnection& bus) const;

    SearchSource _source;
    QString _text;  ///< The last search text.
};

}  // namespace TarnwickDirect
