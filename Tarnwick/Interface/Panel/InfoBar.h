#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"

#include <QWidget>

namespace Tarnwick {

class PushButton;
class WrappedText;

/// A dismissible message above the footer. It slides open and shut. A text of several lines is
/// shown as one paragraph, with the original in the tool tip. Main thread only.
class InfoBar final : public QWidget {
    Q_OBJECT

public:
    enum class Tone {
        error,
        quiet,
    };

    InfoBar(Tone tone, const QString& name, QWidget* parent);

    /// An empty text closes the bar, which shows the last text while it slides.
    void setText(const QString& text);

    QString text() const { return _text; }

    Tone tone() const { return _tone; }

    /// Shows a button beside the text; none if empty.
    void setAction(const QString& title);

    QSize sizeHint() const override;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

Q_SIGNALS:
    void actionTriggered();
    void dismissed();
    /// The focus has to move: a focused button was used, or the bar is closing.
    void focusReleased();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    void resizeEvent(QResizeEvent* /*event*/) override { layOut(); }

private:
    void layOut();
    void followSlide();
    void releaseFocus();
    int fullHeight(int width) const;
    int textStart() const;
    int textWidth(int width) const;
    WrappedText laidOut(int width) const;

    Tone _tone;
    QString _text;
    QString _paragraph;  ///< The text as painted.
    Fade _slide;         ///< The visible part of the height.
    PushButton* _action = nullptr;
    PushButton* _dismiss;
};

}  // namespace Tarnwick
