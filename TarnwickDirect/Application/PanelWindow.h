#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"
#include "Tarnwick/Interface/Style/WindowBorder.h"
#include "TarnwickDirect/Application/PlatformData.h"
#include "TarnwickDirect/Application/ResizeHandle.h"
#include "TarnwickDirect/Application/RoundedCorners.h"

#include <QWidget>

#include <chrono>
#include <functional>
#include <optional>

namespace TarnwickDirect {

/// The window with the panel's content. Main thread only.
class PanelWindow final : public QWidget {
    Q_OBJECT

public:
    enum class Form {
        panel,   ///< Frameless, near the tray; closes when it loses the focus.
        window,  ///< An ordinary window with a frame.
    };

    using Clock = std::chrono::steady_clock;

    /// After a loss of focus, a click on the tray icon within this time counts as its cause and
    /// does not open the panel again.
    static constexpr std::chrono::milliseconds clickThatClosed{300};

    /// Takes ownership of the content. `keepsOpen` tells whether the panel must stay open without
    /// the focus. Requires: `appearance` outlives it.
    PanelWindow(
        QWidget* content, std::function<bool()> keepsOpen, Tarnwick::Appearance& appearance);

    QWidget* content() const { return _content; }

    /// Takes effect at once, or when a visible window is next hidden.
    void setForm(Form form);

    Form form() const { return _form; }

    /// The size to use when shown, as far as the screen allows.
    void setPreferredSize(const QSize& size) { _preferredSize = size.expandedTo(minimumSize()); }

    QSize preferredSize() const { return _preferredSize; }

    /// The effect of Esc: minimize, or close (the default).
    enum class Leaving {
        close,
        minimize
    };

    void setLeaving(Leaving leaving) { _leaving = leaving; }

    /// Does what Esc does.
    void leave();

    /// Called each time the user closes the window; returning true keeps it open. Must return false
    /// once the program ends, because Qt does not quit while windows stay open.
    void setKeepsFromClosing(std::function<bool()> keepsFromClosing)
    {
        _keepsFromClosing = std::move(keepsFromClosing);
    }

    /// Hides the window without emitting `closed`.
    void dismiss();

    /// Shows the window in front with the focus. A panel is placed by the click, if any.
    void present(std::optional<QPoint> click, const PlatformData& platformData);

    /// Shown and not minimized.
    bool isInSight() const { return _isInSight; }

    /// In sight with the focus. A panel counts even without the focus.
    bool isInFront() const;

    /// Whether a click on the tray icon at this time caused the loss of focus.
    bool hasJustLostFocus(Clock::time_point now = Clock::now()) const;

Q_SIGNALS:
    /// `isInSight` changed.
    void shown();
    void hidden();
    /// Emitted after the first frame since the window came in sight, for work that can wait.
    void painted();
    /// The window was hidden to make room for something opened from it.
    void steppedAside();
    /// The user closed the window, which is now hidden.
    void closed();
    /// The user pressed Ctrl+Q.
    void quitRequested();
    void preferredSizeChanged();

protected:
    bool event(QEvent* event) override;
    bool nativeEvent(const QByteArray& type, void* message, qintptr* result) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void applyForm();
    void place(std::optional<QPoint> click);
    void focusLeft();
    void applicationStateChanged(Qt::ApplicationState state);
    void closeUnlessKept();
    void updateSight();
    void rememberSize();
    void appearanceChanged();

    QWidget* _content = nullptr;
    std::function<bool()> _keepsOpen;
    std::function<bool()> _keepsFromClosing;
    Tarnwick::Appearance& _appearance;
    RoundedCorners* _corners = nullptr;
    Tarnwick::WindowBorderConfigurator* _border = nullptr;
    QList<ResizeHandle*> _grips;
    Form _form = Form::window;
    Form _wantedForm = Form::window;
    Leaving _leaving = Leaving::close;
    bool _isTranslucent = false;
    QSize _preferredSize;
    QSize _givenSize;  ///< The size when it was last shown.
    bool _isInSight = false;
    bool _awaitsPainting = false;  ///< True from coming in sight until the first frame.
    bool _isFocusBorrowed = false;
    bool _isWanted = false;     ///< Presented, and not closed or dismissed since.
    quint64 _presentation = 0;  ///< Counts the calls of `present`.
    std::optional<QPoint> _lastClick;
    std::optional<Clock::time_point> _focusLost;
};

}  // namespace TarnwickDirect
