#pragma once

#include "Tarnwick/Interface/Controls/ControlButton.h"

namespace Tarnwick {

/// A button with a text, or with a symbol in place of one.
class PushButton final : public ControlButton {
    Q_OBJECT

public:
    enum class Kind {
        plain,
        primary,
    };
    enum class Size {
        regular,
        small,
    };

    PushButton(
        const QString& text,
        Kind kind,
        const Appearance& appearance,
        QWidget* parent,
        Size size = Size::regular);

    /// Shows a system symbol; the text is for those who cannot see it.
    void setSymbol(const QString& symbol);

    QSize visibleSize() const override;

protected:
    void paintVisible(QPainter& painter, const QRectF& visible) override;
    double radius() const override;

private:
    LineStyle style() const;
    int padding() const;

    Kind _kind;
    Size _size;
    QString _symbol;
};

}  // namespace Tarnwick
