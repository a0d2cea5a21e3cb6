#pragma once

#include "Tarnwick/Interface/List/HeadedListView.h"
#include "Tarnwick/Interface/Picker/PickerListModel.h"
#include "Tarnwick/Interface/Picker/PickerRowPainter.h"

namespace Tarnwick {

/// Repositories below their owners, which have a button each. Main thread only.
/// The arrow keys, Home, End and the page keys move. Space toggles a repository; Space and Return
/// press an owner's button. Other text input goes to `typed`.
class PickerListView final : public HeadedListView {
    Q_OBJECT

public:
    /// Requires: `model` outlives the view.
    PickerListView(PickerListModel& model, QWidget* parent);

    void keyboardSearch(const QString& /*search*/) override {}

    int rowHeight(int row) const override;
    void paintRow(QPainter& painter, int row, const QRect& place) const override;

Q_SIGNALS:
    /// The user pressed an upward key in the first row.
    void leftUpwards();
    void typed(const QString& text);

protected:
    int headingHeight() const override { return _rows.metrics().ownerHeight; }

    bool isOnButton(int row, const QPoint& position) const override;
    QString rowToolTip(int row, const QPoint& position) const override;
    QRect toolTipPlace(int row, const QPoint& position) const override;
    void clicked(int row, bool onButton, const QMouseEvent& event) override;

    Qt::CursorShape cursorOver(bool onButton) const override
    {
        return onButton ? Qt::PointingHandCursor : Qt::ArrowCursor;
    }

    void applyAppearance() override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    /// A double click counts as two clicks.
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }

private:
    void press(int row);

    PickerListModel& _model;
    PickerRowPainter _rows;
};

}  // namespace Tarnwick
