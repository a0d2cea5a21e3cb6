#pragma once

#include <QPointer>
#include <QWidget>

namespace Tarnwick {

/// The thin black line around the panel, with rounded corners. It lets the pointer through.
class WindowBorderOverlayView final : public QWidget {
public:
    WindowBorderOverlayView(bool isDark, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool _isDark = false;
};

/// Keeps a border overlay over the whole window that it stands in, above everything else there.
/// Itself it takes no room and shows nothing.
class WindowBorderView final : public QWidget {
public:
    explicit WindowBorderView(QWidget* parent);

    void setDark(bool isDark);

    /// Ordinary windows have the desktop's own border.
    void setShown(bool isShown);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void install();

    QPointer<QWidget> _borderOverlay;
    QPointer<QWidget> _window;
    bool _isDark = false;
    bool _isShown = true;
};

/// Gives a window its border, in the colors of the appearance. It takes no room either.
class WindowBorderConfigurator final : public QWidget {
public:
    explicit WindowBorderConfigurator(QWidget* window);

    void setShown(bool isShown) { _view->setShown(isShown); }

protected:
    void changeEvent(QEvent* event) override;

private:
    WindowBorderView* _view;
};

}  // namespace Tarnwick
