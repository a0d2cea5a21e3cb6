#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdatePage.h"

#include <QWidget>

#include <functional>

namespace Tarnwick {
class MessageText;
class ProgressBar;
class PushButton;
}  // namespace Tarnwick

namespace TarnwickDirect {

class DownloadBar;

/// The window in which the user follows an update. It is as large as its page needs. Return presses
/// the last button; Esc and the window's own button close it in the way that decides nothing.
/// Whoever hides it otherwise finds it again when something else is to be decided.
class UpdateDialog final : public QWidget {
    Q_OBJECT

public:
    /// Requires: `bringToFront` can be called.
    UpdateDialog(std::function<void(QWidget&)> bringToFront);

    /// Shows the page, or nothing. A dialog that was not in sight comes to the front with a page
    /// that the user asked for. The focus is never taken from another window with a page that
    /// follows later, or that nobody asked for: keys that are meant for others must decide nothing.
    void setPage(const std::optional<UpdatePage>& page);

Q_SIGNALS:
    void triggered(TarnwickDirect::UpdateAction action);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeButtons();
    void comeInSight();
    void layOut();
    int placeNotes(int y);
    int placeBars(int y);
    int placeButtons(int y);
    int innerWidth() const;
    void close();
    std::function<void(QWidget&)> _bringToFront;
    UpdatePage _page;
    bool _hasPage = false;
    Tarnwick::MessageText* _title;
    Tarnwick::MessageText* _message;
    Tarnwick::MessageText* _notes;
    DownloadBar* _progress;
    Tarnwick::ProgressBar* _busy;
    std::vector<Tarnwick::PushButton*> _buttons;  ///< One for each of the page's actions.
    QRect _notesFrame;                            ///< Empty without notes.
};

}  // namespace TarnwickDirect
