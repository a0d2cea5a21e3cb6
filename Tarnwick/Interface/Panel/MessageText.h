#pragma once

#include "Tarnwick/Interface/Panel/WrappedText.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QLabel>

#include <functional>

namespace Tarnwick {

/// A wrapped text with a maximum number of lines, beyond which it scrolls.
class MessageText final : public QLabel {
    Q_OBJECT

public:
    struct Setting {
        TextStyle style = TextStyle::body;
        TextWeight weight = TextWeight::regular;
        Qt::AlignmentFlag alignment = Qt::AlignLeft;
        int mostLines = 8;
        QColor Palette::* color = &Palette::textSecondary;
    };

    static Setting cardTitle();

    MessageText(const Setting& setting, QWidget* parent);

    /// Sets the width, or the least one with the same number of lines, and the resulting height.
    /// Scrolls beyond `mostHeight`; at least one line is visible.
    void fit(int width, bool isBalanced, int mostHeight = QWIDGETSIZE_MAX);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    LineStyle style() const { return appearance().line(_setting.style, _setting.weight); }

    int textWidth() const;
    WrappedText laidOut() const;
    void scrollBy(int pixels);

    Setting _setting;
    bool _scrolls = false;
    int _offset = 0;
};

}  // namespace Tarnwick
