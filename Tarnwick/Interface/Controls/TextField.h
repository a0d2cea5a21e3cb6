#pragma once

#include <QLineEdit>
#include <QWidget>

namespace Tarnwick {

class Appearance;

/// A field to type into, with a frame that shows the focus and, if wanted, a symbol at its start.
/// Room can be kept free at its end for what the owner puts there.
class TextField final : public QWidget {
    Q_OBJECT

public:
    TextField(const QString& symbol, const Appearance& appearance, QWidget* parent);

    QLineEdit& edit() { return *_edit; }

    /// Logical pixels at the end that the text keeps clear of.
    void setTrailingRoom(int room);

    QSize sizeHint() const override;

    /// `height` at text scale 1.
    void setDesignHeight(int height);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void adopt();
    void layOut();

    const Appearance& _appearance;
    QString _symbol;
    QLineEdit* _edit;
    int _trailingRoom = 0;
    int _designHeight = 28;
};

}  // namespace Tarnwick
