#pragma once

#include <QLineEdit>

namespace Tarnwick {

/// A text field with a focus frame, an optional symbol, and space at its end for its owner.
class TextField final : public QLineEdit {
    Q_OBJECT

public:
    /// `designHeight` is at text scale 1.
    TextField(const QString& symbol, int designHeight, QWidget* parent);

    /// The space after the text, in logical pixels.
    void setTrailingRoom(int room);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void followStyle();

    QString _symbol;
    int _designHeight;
    int _trailingRoom = 0;
};

}  // namespace Tarnwick
