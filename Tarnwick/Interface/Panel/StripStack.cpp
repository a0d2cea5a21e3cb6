#include "Tarnwick/Interface/Panel/StripStack.h"

#include "Tarnwick/Interface/Panel/PanelWording.h"
#include "Tarnwick/Interface/Panel/Strip.h"

#include <QVBoxLayout>

namespace Tarnwick {
namespace {

QString textOf(const std::optional<std::string>& text)
{
    return text ? QString::fromStdString(*text) : QString();
}

}  // namespace

StripStack::StripStack(PullRequestMenuModel& model, QWidget* parent)
    : QWidget(parent)
    , _model(model)
    , _refreshError(new Strip(Strip::Tone::error, QStringLiteral("refreshError"), this))
    , _settingsError(new Strip(Strip::Tone::error, QStringLiteral("settingsError"), this))
    , _restingQuota(new Strip(Strip::Tone::quiet, QStringLiteral("restingQuota"), this))
    , _shortfall(new Strip(Strip::Tone::quiet, QStringLiteral("shortfall"), this))
    , _involvedHint(new Strip(Strip::Tone::quiet, QStringLiteral("involvedHint"), this))
{
    setObjectName(QStringLiteral("strips"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (Strip* const strip :
         {_refreshError, _settingsError, _restingQuota, _shortfall, _involvedHint}) {
        layout->addWidget(strip);
        connect(strip, &Strip::focusReleased, this, &StripStack::focusReleased);
    }
    using Model = PullRequestMenuModel;
    _refreshError->setAction(QStringLiteral("Try Again"));
    connect(_refreshError, &Strip::actionTriggered, this, [this] { _model.refresh(); });
    connect(_refreshError, &Strip::dismissed, &model, &Model::dismissRefreshError);
    connect(_settingsError, &Strip::dismissed, &model, &Model::dismissSettingsError);
    _involvedHint->setAction(QStringLiteral("Show Involved"));
    connect(_involvedHint, &Strip::actionTriggered, this, [this] {
        _model.setInvolvedExplained();
        _model.setReviewerFilter(ReviewerFilter::involved);
    });
    connect(_involvedHint, &Strip::dismissed, &model, &Model::setInvolvedExplained);

    const auto follow = [&](auto changed, auto show) {
        connect(&model, changed, this, show);
        (this->*show)();
    };
    follow(&Model::refreshErrorChanged, &StripStack::showRefreshError);
    follow(&Model::lastFailureChanged, &StripStack::showRefreshError);
    follow(&Model::settingsErrorChanged, &StripStack::showSettingsError);
    follow(&Model::restingQuotaChanged, &StripStack::showRestingQuota);
    follow(&Model::shortfallChanged, &StripStack::showShortfall);
    follow(&Model::settingsChanged, &StripStack::showInvolvedHint);
}

/// The model takes its text back when the next refresh begins. The strip stays until one succeeds,
/// because until then it says what is so, and would come and go with every poll.
void StripStack::showRefreshError()
{
    if (_model.refreshError() || !_model.lastFailure()) {
        _refreshError->setText(textOf(_model.refreshError()));
    }
}

void StripStack::showSettingsError()
{
    _settingsError->setText(textOf(_model.settingsError()));
}

void StripStack::showRestingQuota()
{
    const auto& quota = _model.restingQuota();
    _restingQuota->setText(quota ? PanelWording::resting(*quota) : QString());
}

void StripStack::showInvolvedHint()
{
    _involvedHint->setText(
        isInvolvedHintDue(_model.settings())
            ? QStringLiteral("Only what asks for your review is listed.")
            : QString());
}

void StripStack::showShortfall()
{
    const auto& shortfall = _model.shortfall();
    _shortfall->setText(
        shortfall ? PanelWording::truncated(shortfall->found, shortfall->listed) : QString());
}

}  // namespace Tarnwick
