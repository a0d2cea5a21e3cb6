#pragma once

#include <QPointer>
#include <QWidget>

namespace Tarnwick {

/// The thin black line around the panel, with rounded corners. Transparent for the pointer.
class WindowBorderOverlayView final : public QWidget {
public:
    WindowBorderOverlayView(bool isDark, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool _isDark = false;
};

/// Keeps a border overlay on top of the whole window. It takes no space and paints nothing itself.
class WindowBorderView final : public QWidget {
public:
    explicit WindowBorderView(QWidget* parent);

    void setDark(bool isDark);

    /// False in ordinary windows, which have the desktop's border.
    void setShown(bool isShown);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void install();

    QPointer<QWidget> _borderOverlay;
    QPointer<QWidget> _window;
    bool _isDark = false;
    bool _isShown = true;
};

/// Gives a window its border in the colors of the appearance. It takes no space.
class WindowBorderConfigurator final : public QWidget {
public:
    explicit WindowBorderConfigurator(QWidget* window);

    void setShown(bool isShown) { _view->setShown(isShown); }

private:
    WindowBorderView* _view;
};

}  // namespace Tarnwick
