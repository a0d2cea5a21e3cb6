#include "Tarnwick/Interface/Panel/EditorFlow.h"

#include <QPointer>

#include <utility>

namespace Tarnwick {

EditorFlow::EditorFlow(PullRequestMenuModel& model, QObject* parent)
    : QObject(parent)
    , _model(model)
{}

void EditorFlow::open(const PullRequestKit::PullRequest& pullRequest)
{
    if (!_editorProgress) {
        run(pullRequest);
    }
}

QCoro::Task<> EditorFlow::run(PullRequestKit::PullRequest pullRequest)
{
    const QPointer<EditorFlow> self(this);
    setProgress(QStringLiteral("Preparing repository…"));
    const ProgressSink progress = [self](const std::string& text) {
        if (self) {
            self->setProgress(QString::fromStdString(text));
        }
    };
    auto opening = _model.openInEditor(std::move(pullRequest), progress);
    const std::optional<std::string> error = co_await opening;
    if (!self) {
        co_return;
    }
    setProgress(std::nullopt);
    if (error) {
        _externalActionError = QString::fromStdString(*error);
        Q_EMIT externalActionErrorChanged();
    }
}

void EditorFlow::setProgress(std::optional<QString> progress)
{
    _editorProgress = std::move(progress);
    Q_EMIT editorProgressChanged();
}

void EditorFlow::dismissError()
{
    _externalActionError.reset();
    Q_EMIT externalActionErrorChanged();
}

QString EditorFlow::errorReport() const
{
    return errorTitle() + QStringLiteral("\n\n") + _externalActionError.value_or(QString());
}

QString EditorFlow::errorTitle()
{
    return QStringLiteral("Unable to Open Editor");
}

}  // namespace Tarnwick
