#pragma once

#include <QLineEdit>

namespace Tarnwick {

/// A field to type into, with a frame that shows the focus and, if wanted, a symbol at its start.
/// Room can be kept free at its end for what the owner puts there.
class TextField final : public QLineEdit {
    Q_OBJECT

public:
    /// `designHeight` at text scale 1.
    TextField(const QString& symbol, int designHeight, QWidget* parent);

    /// Logical pixels at the end that the text keeps clear of.
    void setTrailingRoom(int room);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void followStyle();

    QString _symbol;
    int _designHeight;
    int _trailingRoom = 0;
};

}  // namespace Tarnwick
