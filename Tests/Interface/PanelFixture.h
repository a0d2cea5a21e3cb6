#pragma once

#include "Fakes/ModelFixture.h"
#include "Tarnwick/Interface/List/FindBar.h"
#include "Tarnwick/PullRequestMenuView.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace Tarnwick {

/// The whole panel over a model among fakes.
class PanelTest : public TestSupport::ModelTest {
protected:
    void showView()
    {
        view = std::make_unique<PullRequestMenuView>(*model);
        view->resize(440, 620);
        view->show();
        (void)QTest::qWaitForWindowActive(view.get());
        view->panelShown();
        TestSupport::processEvents();
    }

    /// A view of these pull requests of octo/tools.
    void showList(const std::vector<PullRequestKit::PullRequest>& pullRequests)
    {
        provider->setPullRequests(pullRequests);
        selectTools();
        start();
        refresh();
        showView();
    }

    template<typename Widget>
    Widget* part(const char* name) const
    {
        return view->findChild<Widget*>(QLatin1String(name));
    }

    QListView& list() const { return *view->findChild<QListView*>(); }

    std::string textOf(const char* label) const
    {
        return part<QLabel>(label)->text().toStdString();
    }

    bool shows(const char* name) const
    {
        const auto* const widget = part<QWidget>(name);
        return widget != nullptr && widget->isVisible();
    }

    void press(Qt::Key key) const { QTest::keyClick(view->focusWidget(), key); }

    void type(const char* text) const
    {
        QTest::keyClicks(view->focusWidget(), QLatin1String(text));
    }

    static QAction* actionOf(const QMenu& menu, const char* text)
    {
        for (QAction* const action : menu.actions()) {
            if (action->text() == QString::fromUtf8(text)) {
                return action;
            }
        }
        return nullptr;
    }

    QAction* actionOfMenu(const char* text) const
    {
        return actionOf(*part<QMenu>("optionsMenu"), text);
    }

    QString footer() const { return part<QWidget>("footer")->accessibleName(); }

    int rows() const { return list().model()->rowCount(); }

    std::unique_ptr<PullRequestMenuView> view;
};

}  // namespace Tarnwick
