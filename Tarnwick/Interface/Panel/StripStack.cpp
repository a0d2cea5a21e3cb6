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
    _refreshError->setAction(QStringLiteral("Try Again"));
    connect(_refreshError, &Strip::actionTriggered, this, [this] { _model.refresh(); });
    connect(_refreshError, &Strip::dismissed, this, [this] {
        _model.dismissRefreshError();
        _refreshError->setText({});
    });
    connect(_settingsError, &Strip::dismissed, &model, &PullRequestMenuModel::dismissSettingsError);
    connect(_restingQuota, &Strip::dismissed, this, [this] { _restingQuota->setText({}); });
    connect(_shortfall, &Strip::dismissed, this, [this] { _shortfall->setText({}); });
    _involvedHint->setAction(QStringLiteral("Show Involved"));
    connect(_involvedHint, &Strip::actionTriggered, this, [this] {
        _model.setInvolvedExplained();
        _model.setReviewerFilter(ReviewerFilter::involved);
    });
    connect(_involvedHint, &Strip::dismissed, this, [this] { _model.setInvolvedExplained(); });

    connect(
        &model, &PullRequestMenuModel::refreshErrorChanged, this, &StripStack::showRefreshError);
    connect(&model, &PullRequestMenuModel::lastFailureChanged, this, &StripStack::showRefreshError);
    connect(
        &model, &PullRequestMenuModel::settingsErrorChanged, this, &StripStack::showSettingsError);
    connect(
        &model, &PullRequestMenuModel::restingQuotaChanged, this, &StripStack::showRestingQuota);
    connect(&model, &PullRequestMenuModel::shortfallChanged, this, &StripStack::showShortfall);
    connect(&model, &PullRequestMenuModel::settingsChanged, this, &StripStack::showInvolvedHint);
    showRefreshError();
    showSettingsError();
    showRestingQuota();
    showShortfall();
    showInvolvedHint();
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
