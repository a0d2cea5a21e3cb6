#pragma once

#include <QWidget>

namespace Tarnwick {

class PushButton;
class Spinner;

/// The panel's header: the program's name, a refresh indicator, and the buttons for searching, if
/// there is a list, and for the options. Clicks do not take the focus.
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
