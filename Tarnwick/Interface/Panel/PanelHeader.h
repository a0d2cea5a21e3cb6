#pragma once

#include <QWidget>

namespace Tarnwick {

class Appearance;
class BrandButton;
class IconButton;
class Spinner;

/// The panel's top: the program's name, a sign that a refresh runs, and the buttons for finding,
/// where there is a list, and for the options. A click on a button leaves the keyboard where it is.
class PanelHeader final : public QWidget {
    Q_OBJECT

public:
    PanelHeader(const Appearance& appearance, QWidget* parent);

    BrandButton& brand() { return *_brand; }

    IconButton& find() { return *_find; }

    IconButton& options() { return *_options; }

    void setFindShown(bool isShown);

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
    IconButton* _find;
    IconButton* _options;
};

}  // namespace Tarnwick
