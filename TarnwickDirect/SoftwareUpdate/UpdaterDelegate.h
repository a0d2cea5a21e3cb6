#pragma once

#include <QString>

namespace TarnwickDirect {

struct UpdateOffer;

/// Hears of what an updater's checks find, on whichever thread that is.
class UpdaterDelegate {
public:
    UpdaterDelegate() = default;
    UpdaterDelegate(const UpdaterDelegate&) = delete;
    UpdaterDelegate& operator=(const UpdaterDelegate&) = delete;
    virtual ~UpdaterDelegate() = default;

    virtual void updaterDidFindValidUpdate(const UpdateOffer& offer) = 0;

    /// `error` is one English sentence: that there is none, or what went wrong.
    virtual void updaterDidNotFindUpdate(const QString& error) = 0;
};

}  // namespace TarnwickDirect
