#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QObject>
#include <QString>

#include <optional>

namespace Tarnwick {

/// Opens one pull request at a time in the editor. Holds progress and error. Main thread only.
class EditorFlow final : public QObject {
    Q_OBJECT

public:
    explicit EditorFlow(PullRequestMenuModel& model, QObject* parent = nullptr);

    /// Such as "Fetching origin…"; set while running.
    const std::optional<QString>& editorProgress() const { return _editorProgress; }

    /// The last error, until dismissed.
    const std::optional<QString>& externalActionError() const { return _externalActionError; }

    /// Does nothing while running.
    void open(const PullRequestKit::PullRequest& pullRequest);

    void dismissError();

    /// Title and message of the error, for the clipboard.
    QString errorReport() const;

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
