#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"

#include <QWidget>

#include <vector>

class QKeyEvent;

namespace Tarnwick {

class PushButton;
class TextField;
class TextLine;

/// The bar between header and list in which the user types what to find. It slides open and shut,
/// at once where the desktop wants no motion. Main thread only.
class FindBar final : public QWidget {
    Q_OBJECT

public:
    /// It is closed at first.
    explicit FindBar(QWidget* parent = nullptr);

    bool isOpen() const { return _slide.isOn(); }

    /// The widgets that Tab stops at, in order.
    std::vector<QWidget*> stops() const;

    QString text() const;
    void setText(const QString& text);

    /// Opens it with the caret in the field.
    void open();

    /// Clears the text and closes it.
    void close();

    /// Says how many of all rows match, while there is something to find.
    void setMatches(int shown, int total);

    QSize sizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Whenever another text is to be found, also when it is cleared.
    void findTextChanged(const QString& text);
    /// The user goes on to the list.
    void leftForList();
    /// The user wants the first hit, or the selected one, opened.
    void hitRequested();
    /// The bar was closed by the user.
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void place();
    int openHeight() const;
    bool takesKey(const QKeyEvent& event);
    QWidget* _content;
    TextField* _field;
    TextLine* _matches;
    PushButton* _closeButton;
    Fade _slide;  ///< How much of the height is open.
};

}  // namespace Tarnwick
