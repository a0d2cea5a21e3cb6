#pragma once

#include "PullRequestKit/Date.h"

#include <QBasicTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace Tarnwick {

class Appearance;

/// The panel's foot: how many pull requests are shown, and how old the list is. It looks at the
/// clock only while it can be seen, and only when the text is about to change.
class PanelFooter final : public QWidget {
    Q_OBJECT

public:
    PanelFooter(
        std::function<PullRequestKit::Date()> now, const Appearance& appearance, QWidget* parent);

    void setCount(std::size_t pullRequests);
    void setRefreshed(std::optional<PullRequestKit::Date> refreshed);

    QString countText() const;
    /// Empty before the first refresh.
    QString updatedText() const;

    bool isTicking() const { return _timer.isActive(); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void refreshText();

    std::function<PullRequestKit::Date()> _now;
    const Appearance& _appearance;
    std::size_t _count = 0;
    std::optional<PullRequestKit::Date> _refreshed;
    QBasicTimer _timer;
};

}  // namespace Tarnwick
