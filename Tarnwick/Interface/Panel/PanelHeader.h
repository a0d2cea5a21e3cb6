#pragma once

#include <QWidget>

namespace Tarnwick {

class PushButton;
class Spinner;

/// The panel's top: the program's name, a sign that a refresh runs, and the buttons for finding,
/// where there is a list, and for the options. A click on a button leaves the keyboard where it is.
class PanelHeader final : public QWidget {
    Q_OBJECT

public:
    explicit PanelHeader(QWidget* parent);

    PushButton& brand() { return *_brand; }

    PushButton& find() { return *_find; }

    PushButton& options() { return *_options; }

    void setRefreshing(bool isRefreshing);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PushButton* _brand;
    Spinner* _spinner;
    PushButton* _find;
    PushButton* _options;
};

}  // namespace Tarnwick
