#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"

#include <QWidget>

#include <vector>

class QKeyEvent;

namespace Tarnwick {

class PushButton;
class TextField;
class TextLine;

/// The search bar between header and list. It slides open and shut. Main thread only.
class FindBar final : public QWidget {
    Q_OBJECT

public:
    /// Initially closed.
    explicit FindBar(QWidget* parent = nullptr);

    bool isOpen() const { return _slide.isOn(); }

    /// The tab stops, in order.
    std::vector<QWidget*> stops() const;

    QString text() const;
    void setText(const QString& text);

    /// Opens it and focuses the field.
    void open();

    /// Clears the text and closes it.
    void close();

    /// Shows the number of matches while there is a text.
    void setMatches(int shown, int total);

    QSize sizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Also emitted when the text is cleared.
    void findTextChanged(const QString& text);
    /// The user moves on to the list.
    void leftForList();
    /// The user wants to open the selected or first hit.
    void hitRequested();
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;

    void resizeEvent(QResizeEvent* /*event*/) override { place(); }

private:
    void place();
    int openHeight() const;
    bool takesKey(const QKeyEvent& event);
    QWidget* _content;
    TextField* _field;
    TextLine* _matches;
    PushButton* _closeButton;
    Fade _slide;  ///< The visible part of the height.
};

}  // namespace Tarnwick
