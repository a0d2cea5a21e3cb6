#pragma once

#include <QWidget>

namespace Tarnwick {

class Appearance;
class BrandButton;
class IconButton;
class Spinner;

/// The panel's top: the program's name, a sign that a refresh runs, and the options button.
class PanelHeader final : public QWidget {
    Q_OBJECT

public:
    PanelHeader(const Appearance& appearance, QWidget* parent);

    BrandButton& brand() { return *_brand; }

    IconButton& options() { return *_options; }

    void setRefreshing(bool isRefreshing);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    const Appearance& _appearance;
    BrandButton* _brand;
    Spinner* _spinner;
    IconButton* _options;
};

}  // namespace Tarnwick
