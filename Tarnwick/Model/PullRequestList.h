#pragma once

#include "Tarnwick/Model/RefreshResult.h"
#include "Tarnwick/Model/RowFilter.h"

#include <QObject>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// The pull requests of the last refresh and the rows visible under the settings. Main thread only.
class PullRequestList final : public QObject {
    Q_OBJECT

public:
    struct Sources {
        std::function<const PullRequestKit::FactsByID&()> facts;
        std::function<std::string_view()> login;
    };

    /// Requires: `settings` outlives it, and both sources are set.
    PullRequestList(const Settings& settings, Sources sources);

    /// Including hidden ones. Not null.
    const SharedPullRequests& all() const { return _all; }

    /// Finds one in `all`; null if absent.
    const PullRequestKit::PullRequest* find(const PullRequestKit::PullRequestID& id) const;
    const PullRequestKit::PullRequest* find(const PullRequestKit::Url& page) const;

    const std::vector<PullRequestKit::PullRequestRow>& rows() const { return _arranged->rows; }

    /// The visible rows. Shared ownership, for callers that outlive the next change. Not null.
    const std::shared_ptr<const ArrangedRows>& arranged() const { return _arranged; }

    /// Includes hidden rows in their places; they do not count. Computed at each call. Not null.
    std::shared_ptr<const ArrangedRows> arrangedWithHidden() const;

    /// The turn of each row in any arrangement. Computed at each call.
    std::vector<PullRequestKit::Turn> turns() const { return turnsOf(rows(), turnSources()); }

    /// Valid until the next change.
    TurnSources turnSources() const;

    /// Pull requests of the selected repositories that are hidden.
    const HiddenCounts& hidden() const { return _hidden; }

    /// Whether a fetched pull request is visible under the current filters.
    Sight sightOf(const PullRequestKit::PullRequest& pullRequest) const
    {
        return Tarnwick::sightOf(pullRequest, _settings);
    }

    /// Details of visible and hidden pull requests, where known. Not null.
    const PullRequestKit::SharedDetails& details() const { return _details; }

    /// Sets the pull requests of a refresh and the rows derived from them.
    void set(
        SharedPullRequests all,
        ArrangedRows arranged,
        HiddenCounts hidden,
        PullRequestKit::SharedDetails details);

    void clear() { show({}, {}); }

    /// Applies changed settings or facts.
    void rebuild();

Q_SIGNALS:
    void rowsChanged();
    /// The hidden pull requests or their number changed.
    void hiddenChanged();
    /// Not emitted together with `rowsChanged`, which implies it.
    void detailsChanged();
    /// The same rows have other turns or groups. `rowsChanged` implies it.
    void turnsChanged();

private:
    bool show(ArrangedRows arranged, HiddenCounts hidden);

    const Settings& _settings;
    Sources _sources;
    SharedPullRequests _all = std::make_shared<const std::vector<PullRequestKit::PullRequest>>();
    std::shared_ptr<const ArrangedRows> _arranged = std::make_shared<const ArrangedRows>();
    HiddenCounts _hidden;
    PullRequestKit::SharedDetails _details = std::make_shared<const PullRequestKit::DetailsByID>();
};

}  // namespace Tarnwick
