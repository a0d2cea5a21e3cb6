#pragma once

#include "TarnwickDirect/Application/BusInterface.h"
#include "TarnwickDirect/Search/SearchSource.h"

namespace TarnwickDirect {

/// The search of Plasma's launcher: org.kde.krunner1. Main thread only.
class KRunnerSearch final : public BusInterface {
public:
    explicit KRunnerSearch(SearchSource source);

    QString introspection() const override;
    bool handle(const QDBusMessage& call, const QDBusConnection& bus) override;

private:
    void match(const QDBusMessage& call, const QDBusConnection& bus) const;

    SearchSource _source;
    QString _text;  ///< What was last looked for.
};

}  // namespace TarnwickDirect
