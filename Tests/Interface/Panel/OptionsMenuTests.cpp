#include "Tarnwick/Interface/Panel/OptionsMenu.h"

#include "Fakes/ModelFixture.h"
#include "Support/Joined.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace Tarnwick {
namespace {

using namespace TestSupport;

class OptionsMenuTests : public ModelTest {
protected:
    OptionsMenuTests()
    {
        start();
        menu = std::make_unique<OptionsMenu>(*model, nullptr);
    }

    /// Titles in order, with "-" for a divider, "[Title]" for a label and "Title >" for a submenu.
    static std::vector<std::string> itemsOf(const QMenu& shown)
    {
        std::vector<std::string> items;
        for (const QAction* const action : shown.actions()) {
            const std::string title = action->text().toStdString();
            if (!action->isVisible()) {
                continue;
            }
            if (action->isSeparator()) {
                items.push_back(title.empty() ? "-" : "[" + title + "]");
            } else {
                items.push_back(action->menu() != nullptr ? title + " >" : title);
            }
        }
        return items;
    }

    static QAction* item(const QMenu& shown, const char* title)
    {
        for (QAction* const action : shown.actions()) {
            if (action->text() == QString::fromUtf8(title)) {
                return action;
            }
        }
        return nullptr;
    }

    QMenu& submenu(const char* title) { return *item(*menu, title)->menu(); }

    /// The titles of a submenu's checked items.
    std::vector<std::string> checked(const char* title)
    {
        std::vector<std::string> titles;
        for (const QAction* const action : submenu(title).actions()) {
            if (action->isChecked()) {
                titles.push_back(action->text().toStdString());
            }
        }
        return titles;
    }

    void choose(const char* title, const char* choice)
    {
        item(submenu(title), choice)->trigger();
        processEvents();
    }

    std::unique_ptr<OptionsMenu> menu;
};

TEST_F(OptionsMenuTests, listsMutedAuthorsWhileThereAreSome)
{
    const auto hasMutedAuthors = [this] {
        const auto items = itemsOf(*menu);
        return std::ranges::find(items, "Muted Authors >") != items.end();
    };
    EXPECT_FALSE(hasMutedAuthors());
    model->mutes().setAuthor("tide-sync", true);
    model->mutes().setAuthor("Otter-bot", true);
    menu->popup(QPoint(0, 0));
    EXPECT_TRUE(hasMutedAuthors());
    EXPECT_THAT(itemsOf(submenu("Muted Authors")), ElementsAre("Otter-bot", "tide-sync"));
    EXPECT_THAT(checked("Muted Authors"), ElementsAre("Otter-bot", "tide-sync"));
    choose("Muted Authors", "tide-sync");
    EXPECT_THAT(model->settings().mutedAuthors, ElementsAre("Otter-bot"));
    EXPECT_THAT(checked("Muted Authors"), ElementsAre("Otter-bot")) << "the other still stands";
    choose("Muted Authors", "tide-sync");
    EXPECT_THAT(model->settings().mutedAuthors, ElementsAre("Otter-bot", "tide-sync"));
    choose("Muted Authors", "tide-sync");
    choose("Muted Authors", "Otter-bot");
    menu->close();
    menu->popup(QPoint(0, 0));
    EXPECT_FALSE(hasMutedAuthors());
}

TEST_F(OptionsMenuTests, hasItsItemsInOrder)
{
    EXPECT_EQ(
        joined(itemsOf(*menu)),
        "Reload, Polling >, Notifications >, Settings >, -, [Filters], Repositories, "
        "Reviewers >, Status >, Checks >, Reviews >, Merge-ready >, -, Arrange >, -, Help, "
        "Quit");
    EXPECT_EQ(menu->accessibleName(), QStringLiteral("List options"));
}

TEST_F(OptionsMenuTests, arrangesTheList)
{
    EXPECT_THAT(itemsOf(submenu("Arrange")), ElementsAre("By Review State", "By Whose Turn"));
    EXPECT_THAT(checked("Arrange"), ElementsAre("By Review State"));
    choose("Arrange", "By Whose Turn");
    EXPECT_EQ(model->settings().arrangement, Arrangement::byWhoseTurn);
    EXPECT_THAT(checked("Arrange"), ElementsAre("By Whose Turn"));
}

TEST_F(OptionsMenuTests, resetsTheFiltersWhileOneDiffersFromItsDefault)
{
    EXPECT_THAT(itemsOf(*menu), Not(Contains("Reset Filters")));
    choose("Checks", "Pass");
    const std::vector<std::string> items = itemsOf(*menu);
    const auto place = std::ranges::find(items, "Reset Filters");
    ASSERT_NE(place, items.end());
    EXPECT_EQ(*(place - 1), "Merge-ready >");
    EXPECT_EQ(*(place + 1), "-");
    item(*menu, "Reset Filters")->trigger();
    EXPECT_THAT(checked("Checks"), ElementsAre("None", "Pending", "Pass", "Fail"));
    EXPECT_THAT(itemsOf(*menu), Not(Contains("Reset Filters")));
}

TEST_F(OptionsMenuTests, screenReadersTellTheKeyApartFromTheTitle)
{
    const QAccessibleInterface* const shown = QAccessible::queryAccessibleInterface(menu.get());
    const QAccessibleInterface* const reload = shown->child(0);
    EXPECT_EQ(reload->text(QAccessible::Name), QStringLiteral("Reload"));
    EXPECT_EQ(reload->text(QAccessible::Accelerator), QStringLiteral("R"));
    const QAccessibleInterface* const quit = shown->child(shown->childCount() - 1);
    EXPECT_EQ(quit->text(QAccessible::Name), QStringLiteral("Quit"));
    EXPECT_EQ(quit->text(QAccessible::Accelerator), QStringLiteral("Ctrl+Q"));
}

TEST_F(OptionsMenuTests, aPressByAScreenReaderClosesItUnlessItWasAChoice)
{
    const auto press = [](QMenu& shown, int place) {
        QAccessible::queryAccessibleInterface(&shown)->child(place)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        processEvents();
    };
    menu->popup({0, 0});
    press(submenu("Status"), 1);
    EXPECT_TRUE(model->settings().statuses.contains(StatusFilter::draft));
    EXPECT_TRUE(menu->isVisible());
    const QSignalSpy reloads(menu.get(), &OptionsMenu::reloadRequested);
    press(*menu, 0);
    EXPECT_EQ(reloads.count(), 1);
    EXPECT_FALSE(menu->isVisible());
}

TEST_F(OptionsMenuTests, submenusHaveTheirItemsInOrder)
{
    EXPECT_THAT(
        itemsOf(submenu("Polling")), ElementsAre("1 minute", "5 minutes", "30 minutes", "1 hour"));
    EXPECT_THAT(itemsOf(submenu("Notifications")), ElementsAre("New PR", "Unblocked", "Your turn"));
    EXPECT_THAT(itemsOf(submenu("Settings")), ElementsAre("Open at Login", "Dark Mode"));
    EXPECT_THAT(itemsOf(submenu("Reviewers")), ElementsAre("Myself", "Any", "Involved"));
    EXPECT_THAT(itemsOf(submenu("Status")), ElementsAre("Open", "Draft"));
    EXPECT_THAT(itemsOf(submenu("Checks")), ElementsAre("None", "Pending", "Pass", "Fail"));
    EXPECT_THAT(
        itemsOf(submenu("Reviews")),
        ElementsAre("Approved", "Changes Requested", "Commented", "None"));
    EXPECT_THAT(
        itemsOf(submenu("Merge-ready")), ElementsAre("Mergeable", "Conflicting", "Unknown"));
}

TEST_F(OptionsMenuTests, choicesReachTheModelAndItsMarksFollow)
{
    choose("Polling", "30 minutes");
    EXPECT_EQ(model->settings().pollingInterval, PollingInterval::thirtyMinutes);
    EXPECT_THAT(checked("Polling"), ElementsAre("30 minutes"));

    choose("Status", "Draft");
    EXPECT_TRUE(model->settings().statuses.contains(StatusFilter::draft));
    EXPECT_THAT(checked("Status"), Contains("Draft"));
    choose("Status", "Draft");
    EXPECT_THAT(checked("Status"), Not(Contains("Draft")));

    choose("Reviewers", "Any");
    EXPECT_THAT(checked("Reviewers"), ElementsAre("Any"));
    choose("Reviewers", "Any");
    EXPECT_THAT(checked("Reviewers"), ElementsAre("Any")) << "the current one stays chosen";

    choose("Settings", "Dark Mode");
    EXPECT_TRUE(model->settings().darkMode);
    choose("Settings", "Open at Login");
    EXPECT_TRUE(model->launchAtLoginEnabled());
    EXPECT_THAT(checked("Settings"), ElementsAre("Open at Login", "Dark Mode"));
}

TEST_F(OptionsMenuTests, aRefusedNotificationIsNotMarked)
{
    notifier->isGranted = false;
    choose("Notifications", "New PR");
    EXPECT_TRUE(model->notificationSettingsRequired());
    EXPECT_THAT(checked("Notifications"), ElementsAre());
}

TEST_F(OptionsMenuTests, aGrantedNotificationIsMarked)
{
    choose("Notifications", "Unblocked");
    EXPECT_THAT(checked("Notifications"), ElementsAre("Unblocked"));
}

TEST_F(OptionsMenuTests, choosingKeepsTheMenuOpenAndActingClosesIt)
{
    QMenu& status = submenu("Status");
    status.popup({0, 0});
    QTest::mouseClick(
        &status, Qt::LeftButton, {}, status.actionGeometry(item(status, "Draft")).center());
    EXPECT_TRUE(status.isVisible());
    status.setActiveAction(item(status, "Open"));
    QTest::keyClick(&status, Qt::Key_Return);
    EXPECT_TRUE(status.isVisible());
    status.close();

    const QSignalSpy reloads(menu.get(), &OptionsMenu::reloadRequested);
    menu->popup({0, 0});
    QTest::mouseClick(
        menu.get(), Qt::LeftButton, {}, menu->actionGeometry(item(*menu, "Reload")).center());
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(reloads.count(), 1);
}

TEST_F(OptionsMenuTests, checksForUpdatesOnlyWhereThereIsAnUpdater)
{
    int checks = 0;
    menu->setUpdateCheck(false, [&checks] { ++checks; });
    EXPECT_THAT(itemsOf(*menu), Contains("Check for Updates…"));
    EXPECT_FALSE(item(*menu, "Check for Updates…")->isEnabled());
    menu->setUpdateCheck(true, [&checks] { ++checks; });
    item(*menu, "Check for Updates…")->trigger();
    EXPECT_EQ(checks, 1);
}

}  // namespace
}  // namespace Tarnwick
