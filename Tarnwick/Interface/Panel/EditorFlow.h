#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QObject>
#include <QString>

#include <optional>

namespace Tarnwick {

/// Opens a pull request in the editor, one at a time, and keeps what there is to show of it. Main
/// thread only.
class EditorFlow final : public QObject {
    Q_OBJECT

public:
    explicit EditorFlow(PullRequestMenuModel& model, QObject* parent = nullptr);

    /// What is under way, such as "Fetching origin…"; set while the flow runs.
    const std::optional<QString>& editorProgress() const { return _editorProgress; }

    /// Why the last flow failed, until it is dismissed.
    const std::optional<QString>& externalActionError() const { return _externalActionError; }

    /// Does nothing while a flow runs.
    void open(const PullRequestKit::PullRequest& pullRequest);

    void dismissError();

    /// Title and message of the error, for the clipboard.
    QString errorReport() const;

    /// The alert's title.
    static QString errorTitle();

Q_SIGNALS:
    void editorProgressChanged();
    void externalActionErrorChanged();

private:
    QCoro::Task<> run(PullRequestKit::PullRequest pullRequest);
    void setProgress(std::optional<QString> progress);

    PullRequestMenuModel& _model;
    std::optional<QString> _editorProgress;
    std::optional<QString> _externalActionError;
};

}  // namespace Tarnwick
