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

/// The window that holds the panel's content. Main thread only.
class PanelWindow final : public QWidget {
    Q_OBJECT

public:
    enum class Form {
        panel,   ///< Without a frame, near the tray; closes when the focus leaves it.
        window,  ///< An ordinary window, which the desktop frames and places.
    };

    using Clock = std::chrono::steady_clock;

    /// How long after the focus has left the panel a click on the tray icon counts as the one that
    /// took it, and opens nothing.
    static constexpr std::chrono::milliseconds clickThatClosed{300};

    /// Takes the content over. `keepsOpen` tells whether the content has something up that must
    /// not be closed when the focus leaves. Requires: `appearance` lives longer.
    PanelWindow(
        QWidget* content, std::function<bool()> keepsOpen, Tarnwick::Appearance& appearance);

    QWidget* content() const { return _content; }

    /// Takes effect at once, or, while the window is in sight, when it next is not.
    void setForm(Form form);

    Form form() const { return _form; }

    /// The size to have when shown, as far as the screen allows.
    void setPreferredSize(const QSize& size);

    QSize preferredSize() const { return _preferredSize; }

    /// What Esc does: minimizes the window or, as at first, closes it.
    enum class Leaving {
        close,
        minimize
    };

    void setLeaving(Leaving leaving) { _leaving = leaving; }

    /// Does what Esc does.
    void leave();

    /// Asked each time the user closes the window; while it says true, the window stays. It must
    /// not do so once the program ends, because Qt ends no program whose windows stay.
    void setKeepsFromClosing(std::function<bool()> keepsFromClosing);

    /// Hides it, as closing does, but nobody is told that it was closed.
    void dismiss();

    /// Comes to the front with the focus; a panel is placed by the click, if there was one.
    void present(std::optional<QPoint> click, const PlatformData& platformData);

    /// Shown and not minimised.
    bool isInSight() const { return _isInSight; }

    /// Shown with the focus, and not minimised. A panel without the focus counts too.
    bool isInFront() const;

    /// Whether a click on the tray icon at this time is the one that took the focus away.
    bool hasJustLostFocus(Clock::time_point now = Clock::now()) const;

Q_SIGNALS:
    /// It came in sight or went, minimised windows being out of sight.
    void shown();
    void hidden();
    /// Its first picture since it came in sight is on the screen: the time for what the user need
    /// not wait for.
    void painted();
    /// It is hidden, neither by its user nor by `dismiss`: something that was opened from it wants
    /// the place.
    void steppedAside();
    /// The user closed the window, which is hidden now.
    void closed();
    /// The user pressed Ctrl+Q, whatever has the focus in the window.
    void quitRequested();
    /// The user gave it another size.
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
    QSize _givenSize;  ///< What the window was last shown with.
    bool _isInSight = false;
    bool _awaitsPainting = false;  ///< From when it came in sight to its first picture.
    bool _isFocusBorrowed = false;
    bool _isWanted = false;     ///< Presented, and neither closed nor dismissed since.
    quint64 _presentation = 0;  ///< Counts the calls of `present`.
    std::optional<QPoint> _lastClick;
    std::optional<Clock::time_point> _focusLost;
};

}  // namespace TarnwickDirect
