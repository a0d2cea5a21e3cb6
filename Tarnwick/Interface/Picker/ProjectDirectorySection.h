#pragma once

#include <QCoro/QCoroTask>
#include <QPointer>
#include <QWidget>

class QFileDialog;
class QLineEdit;
class QShowEvent;

namespace Tarnwick {

class PullRequestMenuModel;
class PushButton;
class TextField;
class TextLine;

/// The project directory: a text field, a button for the folder dialog, and a note. Edits apply to
/// the setting at once. Main thread only.
class ProjectDirectorySection final : public QWidget {
    Q_OBJECT

public:
    /// Requires: `model` outlives the widget.
    ProjectDirectorySection(PullRequestMenuModel& model, QWidget* parent);

    /// Whether the folder dialog is open.
    bool isChoosing() const { return !_dialog.isNull(); }

    QLineEdit& field() const;

protected:
    void resizeEvent(QResizeEvent* /*event*/) override { showNote(); }

    /// The folder may have been created or removed since.
    void showEvent(QShowEvent* /*event*/) override { lookForFolder(); }

private:
    void showSetting();
    void showNote();
    QCoro::Task<> lookForFolder();
    void choose();
    QString setting() const;

    PullRequestMenuModel& _model;
    TextLine* _title;
    TextField* _field;
    PushButton* _choose;
    TextLine* _note;
    QPointer<QFileDialog> _dialog;
    QString _missing;  ///< The setting whose folder does not exist.
};

}  // namespace Tarnwick
