#pragma once

#include "PullRequestKit/Date.h"
#include "Tarnwick/Model/HiddenCounts.h"

#include <QBasicTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace Tarnwick {

class PushButton;

/// The panel's footer: the number of visible pull requests, a button that shows or hides the hidden
/// ones, and the age of the list. Clicks do not take the focus. A timer runs only while it is
/// visible and only until its text changes.
class PanelFooter final : public QWidget {
    Q_OBJECT

public:
    PanelFooter(std::function<PullRequestKit::Date()> now, QWidget* parent);

    /// Nothing while no list is known.
    void setCount(std::optional<std::size_t> pullRequests);
    void setHidden(const HiddenCounts& hidden, bool areShown);
    void setRefreshed(std::optional<PullRequestKit::Date> refreshed);

    /// Empty while no list is known.
    QString countText() const;
    /// Empty before the first refresh.
    QString updatedText() const;

    /// Whether there is space for `updatedText`.
    bool showsUpdated() const;

    bool isTicking() const { return _timer.isActive(); }

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user wants to show or hide the hidden pull requests.
    void hiddenToggled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

    void resizeEvent(QResizeEvent* /*event*/) override { layOut(); }

    void showEvent(QShowEvent* /*event*/) override { refreshText(); }

    void hideEvent(QHideEvent* /*event*/) override { _timer.stop(); }

private:
    void refreshText();
    void layOut();
    /// The end of the chip, or of the count without a chip.
    double leftEnd() const;

    std::function<PullRequestKit::Date()> _now;
    PushButton* _chip;
    std::optional<std::size_t> _count;
    std::optional<PullRequestKit::Date> _refreshed;
    QBasicTimer _timer;
};

}  // namespace Tarnwick
