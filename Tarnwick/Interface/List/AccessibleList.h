#pragma once

class QAccessibleInterface;

namespace Tarnwick {

class PullRequestListView;

/// The list for screen readers, with rows as list items and headings as headings, which Qt's own
/// lists lack. Owned by Qt's cache. Main thread only.
QAccessibleInterface* makeAccessibleList(PullRequestListView* view);

}  // namespace Tarnwick
