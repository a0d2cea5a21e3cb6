#pragma once

#include "List/SampleRows.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>

#include <map>
#include <vector>

namespace Tarnwick {

inline const QPoint onTitle(100, 18);

/// A list of 420 by 520 without motion.
class ListViewTest : public testing::Test {
protected:
    ListViewTest()
    {
        appearance.setPreferences({.reducedMotion = true, .higherContrast = false});
        QObject::connect(
            &view,
            &PullRequestListView::actionRequested,
            &view,
            [this](RowAction action, const PullRequestKit::PullRequest& asked) {
                numbers[action].push_back(asked.id.number);
            });
        view.resize(420, 520);
    }

    void show(std::vector<ListedRow> rows)
    {
        model.setRows(std::move(rows));
        view.show();
        view.activateWindow();
        view.setFocus(Qt::OtherFocusReason);
        QApplication::processEvents();
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
    }

    /// Opened by the mouse.
    QMenu* menuOf(int row)
    {
        QContextMenuEvent byMouse(QContextMenuEvent::Mouse, inRow(row, onTitle), QPoint(1, 1));
        QApplication::sendEvent(view.viewport(), &byMouse);
        return view.findChild<QMenu*>(QStringLiteral("rowMenu"));
    }

    QPoint inRow(int row, const QPoint& position) const
    {
        return view.visualRect(model.index(row)).topLeft() + position;
    }

    void pointAt(const QPoint& position)
    {
        QMouseEvent event(
            QEvent::MouseMove,
            position,
            view.viewport()->mapToGlobal(position),
            Qt::NoButton,
            Qt::NoButton,
            Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }

    void click(const QPoint& position)
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, position);
    }

    int current() const { return view.currentIndex().row(); }

    std::map<RowAction, std::vector<std::int64_t>> numbers;  ///< For what each was asked.
    Appearance& appearance = setApplicationStyle(1.0);
    PullRequestListModel model{TestSupport::sampleNow};
    PullRequestListView view{model};
};

}  // namespace Tarnwick
