#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdatePage.h"

#include <QDialog>

#include <functional>

class QHBoxLayout;
class QLabel;
class QProgressBar;
class QScrollArea;

namespace TarnwickDirect {

/// The window in which the user follows an update. It is as large as its page needs. Return presses
/// the last button; Esc and the window's own button close it in the way that decides nothing.
class UpdateDialog final : public QDialog {
    Q_OBJECT

public:
    /// Requires: `bringToFront` can be called.
    explicit UpdateDialog(std::function<void(QWidget&)> bringToFront);

    /// Shows the page, or nothing. A dialog that was not in sight comes to the front with a page
    /// that the user asked for. The focus is never taken from another window with a page that
    /// follows later, or that nobody asked for: keys that are meant for others must decide nothing.
    void setPage(const std::optional<UpdatePage>& page);

    /// What Esc and the window's own button do.
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
