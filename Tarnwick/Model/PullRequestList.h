#pragma once

#include "Tarnwick/Model/RefreshResult.h"
#include "Tarnwick/Model/RowFilter.h"

#include <QObject>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// The pull requests that were listed last, and those that the settings leave of them. Main thread
/// only.
class PullRequestList final : public QObject {
    Q_OBJECT

public:
    /// What else turns follow from.
    struct Sources {
        std::function<const PullRequestKit::FactsByID&()> facts;
        std::function<std::string_view()> login;
    };

    /// Requires: `settings` outlives this object, and both sources.
    PullRequestList(const Settings& settings, Sources sources);

    /// In sight or not. Not null.
    const SharedPullRequests& all() const { return _all; }

    /// Those of `all`; null when none is meant.
    const PullRequestKit::PullRequest* find(const PullRequestKit::PullRequestID& id) const;
    const PullRequestKit::PullRequest* find(const PullRequestKit::Url& page) const;

    const std::vector<PullRequestKit::PullRequestRow>& rows() const { return _arranged->rows; }

    /// The rows with their turns and groups. Shared ownership, for callers that outlive the next
    /// change. Not null.
    const std::shared_ptr<const ArrangedRows>& arranged() const { return _arranged; }

    /// The same together with the hidden rows in their places, which do not count, worked out at
    /// each call. Not null.
    std::shared_ptr<const ArrangedRows> arrangedWithHidden() const;

    /// Whose turn it is with each of the rows in any arrangement, worked out at each call.
    std::vector<PullRequestKit::Turn> turns() const { return turnsOf(rows(), turnSources()); }

    /// What turns follow from. Valid until the next change.
    TurnSources turnSources() const;

    /// How many pull requests of the selected repositories are not in `rows`, and why.
    const HiddenCounts& hidden() const { return _hidden; }

    /// Whether a fetched pull request is in sight by the filters as they are now.
    Sight sightOf(const PullRequestKit::PullRequest& pullRequest) const
    {
        return Tarnwick::sightOf(pullRequest, _settings);
    }

    /// The names behind the counts of the pull requests, filtered away or not; those whose names
    /// are not known are missing. Not null.
    const PullRequestKit::SharedDetails& details() const { return _details; }

    /// Other pull requests are listed, and these are the rows that the settings leave of them.
    void set(
        SharedPullRequests all,
        ArrangedRows arranged,
        HiddenCounts hidden,
        PullRequestKit::SharedDetails details);

    /// Takes all rows out of sight.
    void clear() { show({}, {}); }

    /// The same pull requests for settings or facts that changed.
    void rebuild();

Q_SIGNALS:
    void rowsChanged();
    /// Another number of pull requests is hidden, or others are, or they changed.
    void hiddenChanged();
    /// The rows are as before: otherwise `rowsChanged` alone says that both changed.
    void detailsChanged();
    /// Turns or groups of the same rows: otherwise `rowsChanged` alone says that both changed.
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
