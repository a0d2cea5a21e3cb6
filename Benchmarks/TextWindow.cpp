// The baseline of a panel with text: a window of the same size that paints eleven rows of text in
// the panel's fonts and does nothing else.

#include "Tarnwick/Interface/Style/AppFonts.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace {

using Tarnwick::TextStyle;
using Tarnwick::TextWeight;

class Text : public QWidget {
protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        constexpr int rows = 11;
        constexpr int rowHeight = 50;
        constexpr int lineHeight = 20;
        constexpr int left = 20;
        constexpr int right = 400;
        QPainter painter(this);
        const auto draw = [&painter](TextStyle style, TextWeight weight, QPoint place, auto text) {
            painter.setFont(
                Tarnwick::AppFonts::font(Tarnwick::AppFonts::preferredPointSize(style), weight));
            painter.drawText(place, QString::fromUtf8(text));
        };
        draw(TextStyle::title, TextWeight::bold, {left, lineHeight}, "Tarnwick");
        for (int row = 1; row <= rows; ++row) {
            const int line = row * rowHeight;
            const int below = line + lineHeight;
            draw(TextStyle::body, TextWeight::medium, {left, line}, "Read the gauges of Nordhavn");
            draw(
                TextStyle::caption, TextWeight::regular, {left, below}, "ferry-api #77 · two days");
            draw(TextStyle::caption, TextWeight::medium, {right, line}, "3/7");
        }
        draw(TextStyle::footnote, TextWeight::regular, {left, height()}, "1,000 pull requests");
    }
};

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Tarnwick::AppFonts::registerBundledFonts();
    Text window;
    window.setWindowTitle(QStringLiteral("Text"));
    window.resize(440, 620);
    window.show();
    return QApplication::exec();
}
