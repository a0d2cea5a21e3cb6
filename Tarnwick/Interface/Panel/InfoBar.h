#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"

#include <QWidget>

namespace Tarnwick {

class PushButton;
class WrappedText;

/// A line above the footer that says what went wrong or is left out, and can be put away. It slides
/// open and shut. A text of several lines is set as one paragraph; as it came, and whole, it is in
/// the help text. Main thread only.
class InfoBar final : public QWidget {
    Q_OBJECT

public:
    enum class Tone {
        error,
        quiet,
    };

    InfoBar(Tone tone, const QString& name, QWidget* parent);

    /// An empty text shuts the info bar, which keeps painting the last one meanwhile.
    void setText(const QString& text);

    QString text() const { return _text; }

    Tone tone() const { return _tone; }

    /// A button beside the text. Without one there is only the one that puts the info bar away.
    void setAction(const QString& title);

    QSize sizeHint() const override;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

Q_SIGNALS:
    void actionTriggered();
    void dismissed();
    /// A button was used that had the focus, or the info bar goes with it.
    void focusReleased();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

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
    QString _paragraph;  ///< As it is painted.
    Fade _slide;         ///< How much of the height is open.
    PushButton* _action = nullptr;
    PushButton* _dismiss;
};

}  // namespace Tarnwick
