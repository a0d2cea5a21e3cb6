#pragma once

#include "PullRequestKit/Date.h"
#include "Tarnwick/Model/HiddenCounts.h"

#include <QBasicTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace Tarnwick {

class PushButton;

/// The panel's foot: how many pull requests are in sight, a button that says how many are hidden
/// and shows or hides them again, and how old the list is. A click leaves the keyboard where it is.
/// The clock is looked at only while the footer can be seen and its text is about to change.
class PanelFooter final : public QWidget {
    Q_OBJECT

public:
    PanelFooter(std::function<PullRequestKit::Date()> now, QWidget* parent);

    /// Nothing while no list is known, which is not the same as an empty one.
    void setCount(std::optional<std::size_t> pullRequests);
    void setHidden(const HiddenCounts& hidden, bool areShown);
    void setRefreshed(std::optional<PullRequestKit::Date> refreshed);

    /// Empty while no list is known.
    QString countText() const;
    /// Empty before the first refresh.
    QString updatedText() const;

    /// Whether there is room for `updatedText`.
    bool showsUpdated() const;

    bool isTicking() const { return _timer.isActive(); }

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The hidden pull requests are to be shown, or hidden again.
    void hiddenToggled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void refreshText();
    void layOut();
    /// Where the chip ends, or the count where there is no chip.
    double leftEnd() const;

    std::function<PullRequestKit::Date()> _now;
    PushButton* _chip;
    std::optional<std::size_t> _count;
    std::optional<PullRequestKit::Date> _refreshed;
    QBasicTimer _timer;
};

}  // namespace Tarnwick
