#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdatePage.h"

#include <QDialog>

#include <functional>

class QHBoxLayout;
class QLabel;
class QProgressBar;
class QScrollArea;

namespace TarnwickDirect {

/// The dialog of an update, sized to its page. Return presses the last button; Esc and the close
/// button take the neutral action of the page. Main thread only.
class UpdateDialog final : public QDialog {
    Q_OBJECT

public:
    /// Requires: `bringToFront` can be called.
    explicit UpdateDialog(std::function<void(QWidget&)> bringToFront);

    /// Shows the page, or hides the dialog. A hidden dialog comes to the front if the user asked
    /// for the page. Otherwise it never takes the focus: keys meant for others must not trigger an
    /// action.
    void setPage(const std::optional<UpdatePage>& page);

    /// Called by Esc and the close button.
    void reject() override;

Q_SIGNALS:
    void triggered(TarnwickDirect::UpdateAction action);

private:
    void showPage(const UpdatePage& page);
    void makeButtons(const std::vector<UpdateAction>& actions);
    void fit();
    void comeInSight(bool wasAskedFor);

    std::function<void(QWidget&)> _bringToFront;
    std::optional<UpdatePage> _page;
    QLabel* _title;
    QLabel* _message;
    QLabel* _notes;
    QScrollArea* _notesFrame;
    QProgressBar* _progress;
    QHBoxLayout* _buttons;
};

}  // namespace TarnwickDirect
