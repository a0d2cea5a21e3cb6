#pragma once

#include "Tarnwick/Interface/Picker/PickerListModel.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <QWidget>

class QSpacerItem;

namespace Tarnwick {

class Notice;
class PickerListView;
class ProjectDirectorySection;
class PushButton;
class TextField;
class TextLine;

/// Lets the user select repositories and set the project directory. Changes apply to the model at
/// once. It covers the window and focuses its find field. Main thread only.
class RepositoryPicker final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RepositoryPicker)

public:
    /// Requires: `model` outlives the picker.
    explicit RepositoryPicker(PullRequestMenuModel& model, QWidget* parent = nullptr);
    ~RepositoryPicker() override;

    /// Focuses the field of the project directory.
    void editProjectDirectory();

    /// Whether the folder dialog is open, so that the panel must not close when it loses the focus.
    bool keepsOpen() const;

Q_SIGNALS:
    void done();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void connectParts();
    void nameParts();
    void layOutParts();
    void fitRows();
    void showRepositories();
    void showSelection();
    void showRows();
    void find(const QString& text);
    void selectShown(bool selected);
    void goBack();

    PullRequestMenuModel& _model;
    PickerListModel _rows;
    TextLine* _title;
    PushButton* _done;
    TextField* _find;
    ProjectDirectorySection* _directory;
    TextLine* _count;
    PushButton* _selectAll;
    PushButton* _selectNone;
    PickerListView* _list;
    Notice* _notice;
    QSpacerItem* _head;     ///< As high as the head.
    QSpacerItem* _summary;  ///< As high as the line above the list.
};

}  // namespace Tarnwick
