#pragma once

#include <QWidget>

namespace TarnwickDirect {

/// A thin bar that fills up.
class DownloadBar final : public QWidget {
public:
    DownloadBar(QWidget* parent);

    double share() const { return _share; }

    /// From 0 to 1.
    void setShare(double share);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double _share = 0;
};

}  // namespace TarnwickDirect
