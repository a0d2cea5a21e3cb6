#pragma once

#include "Tarnwick/Interface/Style/Palette.h"
#include "Tarnwick/Interface/Style/TextStyle.h"

#include <QFont>
#include <QObject>

#include <optional>

namespace Tarnwick {

/// The font of a line of text, its height and its baseline from the top, in logical pixels.
struct LineStyle {
    QFont font;
    int height = 0;
    double baseline = 0;
    double pixelSize = 0;
};

/// Light or dark, text size, motion and contrast. Owned by the style. Main thread only.
class Appearance final : public QObject {
    Q_OBJECT

public:
    /// The desktop's preferences other than its font.
    struct Preferences {
        bool reducedMotion = false;
        bool higherContrast = false;

        bool operator==(const Preferences&) const = default;
    };

    /// A given text scale does not follow the desktop; 1 is a font of 10 points.
    explicit Appearance(std::optional<double> textScale);

    bool isDark() const { return _isDark; }

    void setDark(bool dark);

    void setPreferences(Preferences preferences);

    bool reducedMotion() const { return _preferences.reducedMotion; }

    bool higherContrast() const { return _preferences.higherContrast; }

    /// Whether windows can be translucent, so that round corners need no mask.
    bool blendsWindows() const { return _blendsWindows; }

    void setBlendsWindows(bool blends) { _blendsWindows = blends; }

    const Palette& palette() const { return _isDark ? Palette::dark() : Palette::light(); }

    /// The desktop's font size divided by 10 points.
    double textScale() const { return _textScale; }

    void setTextScale(double textScale);

    /// A length at text scale 1, scaled and rounded to an even number of logical pixels.
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

/// The appearance of the application's style, for layout and painting. A change repaints all
/// widgets; `changed` is for those that lay out by hand. Requires: `setApplicationStyle` was
/// called. Main thread only.
const Appearance& appearance();

}  // namespace Tarnwick
