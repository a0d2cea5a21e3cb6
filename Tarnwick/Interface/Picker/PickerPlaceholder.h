#pragma once

#include <QWidget>

namespace Tarnwick {

class Appearance;
class TextLine;

/// What stands in the list's place when it has no rows. Main thread only.
class PickerPlaceholder final : public QWidget {
    Q_OBJECT

public:
    PickerPlaceholder(const Appearance& appearance, QWidget* parent);

    void showNoRepositories();
    /// Nobody knows yet whether there are any.
    void showNotLoaded();
    void showNoMatches();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    void showTitle(const QString& title);

    const Appearance& _appearance;
    TextLine* _title;
    TextLine* _noMatches;
    QRect _symbol;
};

}  // namespace Tarnwick
