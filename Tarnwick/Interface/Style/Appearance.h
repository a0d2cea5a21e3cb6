#pragma once

#include "Tarnwick/Interface/Style/Palette.h"
#include "Tarnwick/Interface/Style/TextStyle.h"

#include <QFont>
#include <QObject>

#include <optional>

namespace Tarnwick {

/// How a line of text is set: its font, the height of the line and the place of the baseline below
/// the line's top, in logical pixels.
struct LineStyle {
    QFont font;
    int height = 0;
    double baseline = 0;
    double pixelSize = 0;
};

/// How everything on screen looks: light or dark, how large the desktop wants its text, whether it
/// wants motion and how much contrast. It belongs to the application's style. Main thread only.
class Appearance final : public QObject {
    Q_OBJECT

public:
    /// What the desktop asks for beside the size of its font.
    struct Preferences {
        bool reducedMotion = false;
        bool higherContrast = false;

        bool operator==(const Preferences&) const = default;
    };

    /// Text is as large as the desktop's font makes it, or has a scale that does not follow the
    /// desktop. 1 is a font of 10 points.
    explicit Appearance(std::optional<double> textScale);

    bool isDark() const { return _isDark; }

    void setDark(bool dark);

    void setPreferences(Preferences preferences);

    bool reducedMotion() const { return _preferences.reducedMotion; }

    bool higherContrast() const { return _preferences.higherContrast; }

    /// Whether windows can be translucent, so that round corners need not be cut out of them.
    bool blendsWindows() const { return _blendsWindows; }

    void setBlendsWindows(bool blends) { _blendsWindows = blends; }

    const Palette& palette() const { return _isDark ? Palette::dark() : Palette::light(); }

    /// The desktop's font size divided by 10 points.
    double textScale() const { return _textScale; }

    void setTextScale(double textScale);

    /// A length of the design at text scale 1, in logical pixels, made to fit the text and even.
    int scaled(int length) const;

    LineStyle line(TextStyle style, TextWeight weight) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void changed();

private:
    bool _isDark = false;
    bool _blendsWindows = true;
    Preferences _preferences;
    double _textScale = 1;
};

/// That of the application's style. Widgets take colors, fonts and sizes from it when they lay out
/// and paint, and get `QEvent::StyleChange` when it has changed. Requires: `setApplicationStyle`
/// was called. Main thread only.
const Appearance& appearance();

}  // namespace Tarnwick
