#include "Tarnwick/Interface/Panel/InfoBarStack.h"

#include "Tarnwick/Interface/Panel/InfoBar.h"
#include "Tarnwick/Interface/Panel/PanelWording.h"

#include <QVBoxLayout>

namespace Tarnwick {
namespace {

QString textOf(const std::optional<std::string>& text)
{
    return text ? QString::fromStdString(*text) : QString();
}

}  // namespace

InfoBarStack::InfoBarStack(PullRequestMenuModel& model, QWidget* parent)
    : QWidget(parent)
    , _model(model)
    , _refreshError(new InfoBar(InfoBar::Tone::error, QStringLiteral("refreshError"), this))
    , _settingsError(new InfoBar(InfoBar::Tone::error, QStringLiteral("settingsError"), this))
    , _restingQuota(new InfoBar(InfoBar::Tone::quiet, QStringLiteral("restingQuota"), this))
    , _truncation(new InfoBar(InfoBar::Tone::quiet, QStringLiteral("truncation"), this))
    , _involvedHint(new InfoBar(InfoBar::Tone::quiet, QStringLiteral("involvedHint"), this))
{
    setObjectName(QStringLiteral("infoBars"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (InfoBar* const infoBar :
         {_refreshError, _settingsError, _restingQuota, _truncation, _involvedHint}) {
        layout->addWidget(infoBar);
        connect(infoBar, &InfoBar::focusReleased, this, &InfoBarStack::focusReleased);
    }
    using Model = PullRequestMenuModel;
    _refreshError->setAction(QStringLiteral("Try Again"));
    connect(_refreshError, &InfoBar::actionTriggered, this, [this] { _model.refresh(); });
    connect(_refreshError, &InfoBar::dismissed, &model, &Model::dismissRefreshError);
    connect(_settingsError, &InfoBar::dismissed, &model, &Model::dismissSettingsError);
    _involvedHint->setAction(QStringLiteral("Show Involved"));
    connect(_involvedHint, &InfoBar::actionTriggered, this, [this] {
        _model.setInvolvedExplained();
        _model.setReviewerFilter(ReviewerFilter::involved);
    });
    connect(_involvedHint, &InfoBar::dismissed, &model, &Model::setInvolvedExplained);

    const auto follow = [&](auto changed, auto follower) {
        connect(&model, changed, this, follower);
        (this->*follower)();
    };
    follow(&Model::refreshErrorChanged, &InfoBarStack::showRefreshError);
    follow(&Model::lastFailureChanged, &InfoBarStack::showRefreshError);
    follow(&Model::settingsErrorChanged, &InfoBarStack::showSettingsError);
    follow(&Model::restingQuotaChanged, &InfoBarStack::showRestingQuota);
    follow(&Model::truncationChanged, &InfoBarStack::showTruncation);
    follow(&Model::settingsChanged, &InfoBarStack::showInvolvedHint);
}

/// The model clears its error when the next refresh starts. The bar stays until one succeeds, so
/// that it does not flicker with every poll.
void InfoBarStack::showRefreshError()
{
    if (_model.refreshError() || !_model.lastFailure()) {
        _refreshError->setText(textOf(_model.refreshError()));
    }
}

void InfoBarStack::showSettingsError()
{
    _settingsError->setText(textOf(_model.settingsError()));
}

void InfoBarStack::showRestingQuota()
{
    const auto& quota = _model.restingQuota();
    _restingQuota->setText(quota ? PanelWording::resting(*quota) : QString());
}

void InfoBarStack::showInvolvedHint()
{
    _involvedHint->setText(
        isInvolvedHintDue(_model.settings())
            ? QStringLiteral("Only what asks for your review is listed.")
            : QString());
}

void InfoBarStack::showTruncation()
{
    const auto& truncation = _model.truncation();
    _truncation->setText(
        truncation ? PanelWording::truncated(truncation->found, truncation->listed) : QString());
}

}  // namespace Tarnwick
