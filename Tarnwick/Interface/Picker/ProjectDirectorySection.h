#pragma once

#include <QPointer>
#include <QWidget>

class QFileDialog;

namespace Tarnwick {

class Appearance;
class PullRequestMenuModel;
class PushButton;
class TextField;
class TextLine;

/// Where the user's clones lie: a field with a button that opens the desktop's folder dialog, and a
/// note. What is typed becomes the setting when the user has finished with the field. Main thread
/// only.
class ProjectDirectorySection final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ProjectDirectorySection)

public:
    /// Requires: both live longer than the widget.
    ProjectDirectorySection(
        PullRequestMenuModel& model, const Appearance& appearance, QWidget* parent);
    ~ProjectDirectorySection() override;

    /// Makes what is typed the setting.
    void commit();

    /// Puts the setting back in place of what is typed and not yet finished. Returns whether there
    /// was such a text.
    bool revert();

    /// Whether the folder dialog is open.
    bool isChoosing() const { return !_dialog.isNull(); }

    QWidget& field() const;
    QWidget& chooseButton() const;

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    void showSetting();
    void showNote();
    void choose();
    QString setting() const;

    PullRequestMenuModel& _model;
    const Appearance& _appearance;
    TextLine* _title;
    TextField* _field;
    PushButton* _choose;
    TextLine* _note;
    QPointer<QFileDialog> _dialog;
};

}  // namespace Tarnwick
