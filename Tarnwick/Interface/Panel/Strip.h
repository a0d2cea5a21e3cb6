#pragma once

#include <QWidget>

namespace Tarnwick {

class Appearance;
class IconButton;
class TextButton;
class WrappedText;

/// A line above the footer that says what went wrong or is left out, and can be put away. A
/// text of more than three lines is in its help text. Main thread only.
class Strip final : public QWidget {
    Q_OBJECT

public:
    enum class Tone {
        error,
        quiet,
    };

    Strip(Tone tone, const QString& name, const Appearance& appearance, QWidget* parent);

    /// An empty text hides the strip.
    void setText(const QString& text);

    QString text() const { return _text; }

    /// A button beside the text. Without one there is only the one that puts the strip away.
    void setAction(const QString& title);

    QSize sizeHint() const override;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

Q_SIGNALS:
    void actionTriggered();
    void dismissed();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    int textStart() const;
    int textWidth(int width) const;
    WrappedText laidOut(int width) const;

    Tone _tone;
    const Appearance& _appearance;
    QString _text;
    TextButton* _action = nullptr;
    IconButton* _dismiss;
};

}  // namespace Tarnwick
