#pragma once

class QAccessibleInterface;

namespace Tarnwick {

class PullRequestListView;

/// What screen readers find of the list: its rows as the items of a list and the headings among
/// them as headings, which Qt's own lists do not have. Owned by Qt's cache. Main thread only.
QAccessibleInterface* makeAccessibleList(PullRequestListView* view);

}  // namespace Tarnwick
