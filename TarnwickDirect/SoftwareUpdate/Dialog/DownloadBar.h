#pragma once

#include <QWidget>

namespace Tarnwick {
class Appearance;
}  // namespace Tarnwick

namespace TarnwickDirect {

/// A thin bar that fills up.
class DownloadBar final : public QWidget {
public:
    /// Requires: `appearance` lives longer.
    DownloadBar(const Tarnwick::Appearance& appearance, QWidget* parent);

    double share() const { return _share; }

    /// From 0 to 1.
    void setShare(double share);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Tarnwick::Appearance& _appearance;
    double _share = 0;
};

}  // namespace TarnwickDirect
