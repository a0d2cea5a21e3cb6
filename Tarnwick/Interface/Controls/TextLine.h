#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QLabel>

namespace Tarnwick {

/// A line of text in a style of the design, elided if too long. Main thread only.
class TextLine final : public QLabel {
    Q_OBJECT

public:
    struct Setting {
        TextStyle style = TextStyle::body;
        TextWeight weight = TextWeight::regular;
        QColor Palette::* color = &Palette::textPrimary;
        Qt::AlignmentFlag alignment = Qt::AlignLeft;
    };

    TextLine(const QString& text, Setting setting, QWidget* parent);

    LineStyle lineStyle() const { return appearance().line(_setting.style, _setting.weight); }

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Setting _setting;
};

}  // namespace Tarnwick
