#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialog.h"

#include "SoftwareUpdate/UpdaterFixture.h"
#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Look/ApplicationStyle.h"
#include "Tarnwick/Interface/Panel/MessageText.h"
#include "TarnwickDirect/SoftwareUpdate/Dialog/DownloadBar.h"
#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialogs.h"

#include <QAccessible>
#include <QScreen>
#include <QTest>

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::ElementsAre;
using testing::IsEmpty;
using enum UpdateAction;

template<typename Widget>
Widget* child(const QWidget& parent, const char* name)
{
    return parent.findChild<Widget*>(QString::fromLatin1(name));
}

/// The buttons that can be seen, from the left.
std::vector<QAbstractButton*> buttonsOf(const QWidget& dialog)
{
    std::vector<QAbstractButton*> buttons;
    for (auto* const button : dialog.findChildren<QAbstractButton*>()) {
        if (button->isVisible()) {
            buttons.push_back(button);
        }
    }
    std::ranges::sort(buttons, {}, &QWidget::x);
    return buttons;
}

QAbstractButton* buttonNamed(const QWidget& dialog, const char* text)
{
    for (auto* const button : buttonsOf(dialog)) {
        if (button->text() == QString::fromLatin1(text)) {
            return button;
        }
    }
    throw std::logic_error(text);
}

UpdatePage availablePage()
{
    UpdatePage page;
    page.title = QStringLiteral("A new version of Tarnwick is available!");
    page.message = QStringLiteral("Tarnwick 2.0 is available, and you have 1.0.");
    page.notes = QStringLiteral("Calmer.");
    page.actions = {skip, remindLater, install};
    return page;
}

UpdatePage busyPage(std::vector<UpdateAction> actions)
{
    UpdatePage page;
    page.title = QStringLiteral("Working…");
    page.isBusy = true;
    page.actions = std::move(actions);
    return page;
}

class UpdateDialogTest : public testing::Test {
protected:
    UpdateDialogTest()
    {
        QObject::connect(&dialog, &UpdateDialog::triggered, [this](UpdateAction action) {
            actions.push_back(action);
        });
    }

    QString text(const char* name) { return child<QLabel>(dialog, name)->text(); }

    double shownShare()
    {
        return static_cast<DownloadBar*>(child<QWidget>(dialog, "updateProgress"))->share();
    }

    Tarnwick::Appearance& appearance = Tarnwick::setApplicationStyle(1);
    int arrivals = 0;  ///< How often the dialog was brought to the front.
    UpdateDialog dialog{[this](QWidget& window) {
        ++arrivals;
        window.show();
        window.activateWindow();
    }};
    std::vector<UpdateAction> actions;
};

TEST_F(UpdateDialogTest, isNotThereWithoutAPage)
{
    EXPECT_FALSE(dialog.isVisible());
    dialog.setPage(availablePage());
    EXPECT_TRUE(dialog.isVisible());
    dialog.setPage(std::nullopt);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(UpdateDialogTest, showsThePage)
{
    dialog.setPage(availablePage());
    EXPECT_EQ(text("updateTitle"), QStringLiteral("A new version of Tarnwick is available!"));
    EXPECT_EQ(
        text("updateMessage"), QStringLiteral("Tarnwick 2.0 is available, and you have 1.0."));
    EXPECT_EQ(text("updateNotes"), QStringLiteral("Calmer."));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Software Update"));
    EXPECT_EQ(dialog.accessibleName(), QStringLiteral("A new version of Tarnwick is available!"));
    EXPECT_FALSE(child<QWidget>(dialog, "updateProgress")->isVisible());
    EXPECT_FALSE(child<QWidget>(dialog, "updateBusy")->isVisible());
}

TEST_F(UpdateDialogTest, hasAButtonForEachAction)
{
    dialog.setPage(availablePage());
    std::vector<QString> texts;
    for (const auto* const button : buttonsOf(dialog)) {
        texts.push_back(button->text());
        EXPECT_TRUE(dialog.rect().contains(button->geometry()));
    }
    EXPECT_THAT(
        texts,
        ElementsAre(
            QStringLiteral("Skip This Version"),
            QStringLiteral("Remind Me Later"),
            QStringLiteral("Install Update")));
    for (auto* const button : buttonsOf(dialog)) {
        button->click();
    }
    EXPECT_THAT(actions, ElementsAre(skip, remindLater, install));
}

TEST_F(UpdateDialogTest, nothingOverlaps)
{
    UpdatePage page = availablePage();
    page.notes = QStringLiteral("A long line of notes that is wrapped. ").repeated(200);
    dialog.setPage(page);
    std::vector<QRect> parts;
    for (const auto* const part : dialog.findChildren<QWidget*>()) {
        if (part->isVisible()) {
            const QRect seen = part->geometry();
            EXPECT_TRUE(dialog.rect().contains(seen)) << part->y();
            for (const QRect& other : parts) {
                EXPECT_FALSE(seen.intersects(other));
            }
            parts.push_back(seen);
        }
    }
    EXPECT_EQ(parts.size(), 6U);
    EXPECT_EQ(child<QWidget>(dialog, "updateNotes")->focusPolicy(), Qt::TabFocus);
    EXPECT_LT(dialog.height(), 500);
}

TEST_F(UpdateDialogTest, holdsEverythingInLargeText)
{
    Tarnwick::setApplicationStyle(2);
    UpdateDialog largeDialog([](QWidget& window) { window.show(); });
    largeDialog.setPage(availablePage());
    const auto buttons = buttonsOf(largeDialog);
    ASSERT_EQ(buttons.size(), 3U);
    EXPECT_GE(buttons[0]->geometry().left(), 20);
    EXPECT_LT(buttons[0]->geometry().right(), (*buttons[1]).geometry().left());
    EXPECT_LT(buttons[1]->geometry().right(), (*buttons[2]).geometry().left());
    EXPECT_LE(buttons[2]->geometry().right(), largeDialog.width() - 20);
    EXPECT_LE(buttons[2]->geometry().bottom(), largeDialog.height() - 20);
}

TEST_F(UpdateDialogTest, staysOnTheScreenWithLargeTextAndLongNotes)
{
    Tarnwick::setApplicationStyle(3);
    UpdateDialog largeDialog([](QWidget& window) { window.show(); });
    UpdatePage page = availablePage();
    page.notes = QStringLiteral("Calmer.\n").repeated(100);
    largeDialog.setPage(page);
    EXPECT_EQ(child<QWidget>(largeDialog, "updateNotes")->focusPolicy(), Qt::TabFocus);
    EXPECT_LE(largeDialog.height(), largeDialog.screen()->availableGeometry().height());
}

TEST_F(UpdateDialogTest, isADialogToAssistivePrograms)
{
    dialog.setPage(availablePage());
    QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(&dialog);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->role(), QAccessible::Dialog);
    EXPECT_EQ(
        found->text(QAccessible::Name), QStringLiteral("A new version of Tarnwick is available!"));
    const auto* const notes = child<QWidget>(dialog, "updateNotes");
    EXPECT_EQ(notes->accessibleDescription(), QStringLiteral("Release notes"));
}

TEST_F(UpdateDialogTest, aScreenReaderFindsHowFarADownloadIs)
{
    UpdatePage page = busyPage({cancel});
    page.isBusy = false;
    page.progress = 0.25;
    dialog.setPage(page);
    QAccessibleInterface* const bar =
        QAccessible::queryAccessibleInterface(child<QWidget>(dialog, "updateProgress"));
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    ASSERT_NE(bar->valueInterface(), nullptr);
    EXPECT_EQ(bar->valueInterface()->currentValue(), QVariant(25));
    EXPECT_EQ(bar->valueInterface()->maximumValue(), QVariant(100));
}

TEST_F(UpdateDialogTest, showsHowFarADownloadIs)
{
    UpdatePage page = busyPage({cancel});
    page.isBusy = false;
    page.progress = 0.25;
    dialog.setPage(page);
    EXPECT_TRUE(child<QWidget>(dialog, "updateProgress")->isVisible());
    EXPECT_EQ(shownShare(), 0.25);
    EXPECT_EQ(
        child<QWidget>(dialog, "updateProgress")->accessibleDescription(), QStringLiteral("25 %"));
    EXPECT_FALSE(child<QWidget>(dialog, "updateBusy")->isVisible());
    auto* const button = buttonsOf(dialog).at(0);
    page.progress = 0.5;
    dialog.setPage(page);
    EXPECT_EQ(shownShare(), 0.5);
    EXPECT_EQ(buttonsOf(dialog).at(0), button);
}

TEST_F(UpdateDialogTest, showsThatSomethingRuns)
{
    dialog.setPage(busyPage({cancel}));
    EXPECT_TRUE(child<QWidget>(dialog, "updateBusy")->isVisible());
    EXPECT_FALSE(child<QWidget>(dialog, "updateProgress")->isVisible());
}

TEST_F(UpdateDialogTest, returnTakesTheLastAction)
{
    dialog.setPage(availablePage());
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_THAT(actions, ElementsAre(install));
}

TEST_F(UpdateDialogTest, escapeAndTheWindowsButtonDecideNothing)
{
    dialog.setPage(availablePage());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    static_cast<QWidget&>(dialog).close();
    EXPECT_THAT(actions, ElementsAre(remindLater, remindLater));
}

TEST_F(UpdateDialogTest, hasNoKeyToCloseWhatMustGoOn)
{
    dialog.setPage(busyPage({}));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_THAT(actions, IsEmpty());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(UpdateDialogTest, standsNotInTheWayOfTheSessionsEnd)
{
    dialog.setPage(busyPage({}));
    EXPECT_TRUE(static_cast<QWidget&>(dialog).close());
    EXPECT_FALSE(dialog.isVisible());
    dialog.setPage(availablePage());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(UpdateDialogTest, comesToTheFrontOnce)
{
    dialog.setPage(busyPage({cancel}));
    EXPECT_EQ(arrivals, 1);
    dialog.setPage(availablePage());
    EXPECT_EQ(arrivals, 1);
    dialog.setPage(std::nullopt);
    dialog.setPage(busyPage({cancel}));
    EXPECT_EQ(arrivals, 2);
}

TEST_F(UpdateDialogTest, takesNoFocusWithWhatNobodyAskedFor)
{
    UpdatePage page = availablePage();
    page.wasAskedFor = false;
    dialog.setPage(page);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_EQ(arrivals, 0);
}

TEST_F(UpdateDialogTest, buttonsMayTakeThePageAway)
{
    dialog.setPage(availablePage());
    QObject::connect(
        &dialog, &UpdateDialog::triggered, [this] { dialog.setPage(busyPage({cancel})); });
    buttonNamed(dialog, "Install Update")->click();
    TestSupport::processEvents();
    EXPECT_EQ(buttonsOf(dialog).size(), 1U);
}

class UpdateDialogsTest : public TestSupport::UpdaterTest {
protected:
    void open()
    {
        start();
        dialogs = std::make_unique<UpdateDialogs>(
            *updater, QStringLiteral("1.0"), [](QWidget& window) { window.show(); });
        QObject::connect(dialogs.get(), &UpdateDialogs::restartRequested, [this] { ++restarts; });
    }

    void press(const char* text) { buttonNamed(dialogs->dialog(), text)->click(); }

    ~UpdateDialogsTest() override { dialogs.reset(); }

    Tarnwick::Appearance& appearance = Tarnwick::setApplicationStyle(1);
    int restarts = 0;
    std::unique_ptr<UpdateDialogs> dialogs;
};

TEST_F(UpdateDialogsTest, leadFromTheCheckToTheNewVersion)
{
    open();
    EXPECT_FALSE(dialogs->dialog().isVisible());
    updater->checkForUpdates();
    EXPECT_TRUE(dialogs->dialog().isVisible());
    ASSERT_TRUE(reaches(Kind::available));
    press("Install Update");
    ASSERT_TRUE(reaches(Kind::installed));
    EXPECT_EQ(FileTrouble::contentsOf(appImage), program.toStdString());
    EXPECT_EQ(restarts, 0);
    press("Restart Now");
    EXPECT_EQ(restarts, 1);
    EXPECT_FALSE(dialogs->dialog().isVisible());
}

TEST_F(UpdateDialogsTest, skipTheVersion)
{
    open();
    ASSERT_EQ(check(), Kind::available);
    press("Skip This Version");
    EXPECT_FALSE(dialogs->dialog().isVisible());
    EXPECT_EQ(Tarnwick::readText(*defaults, "updates.skippedVersion"), "2.0");
}

TEST_F(UpdateDialogsTest, remindLater)
{
    open();
    ASSERT_EQ(check(), Kind::available);
    press("Remind Me Later");
    EXPECT_FALSE(dialogs->dialog().isVisible());
    EXPECT_TRUE(defaults->values.find("updates.skippedVersion") == defaults->values.end());
}

TEST_F(UpdateDialogsTest, cancelTheCheckAndTheDownload)
{
    stallDownload();
    open();
    updater->checkForUpdates();
    press("Cancel");
    EXPECT_FALSE(dialogs->dialog().isVisible());
    ASSERT_EQ(check(), Kind::available);
    press("Install Update");
    ASSERT_TRUE(TestSupport::eventually([this] { return updater->state().receivedBytes > 0; }));
    press("Cancel");
    EXPECT_FALSE(dialogs->dialog().isVisible());
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(UpdateDialogsTest, tellOfErrorsAndGoOn)
{
    serveFeed("<item>");
    open();
    ASSERT_EQ(check(), Kind::failed);
    EXPECT_EQ(
        child<QLabel>(dialogs->dialog(), "updateMessage")->text(),
        QStringLiteral("The update feed is not well-formed XML in line 1."));
    press("OK");
    EXPECT_FALSE(dialogs->dialog().isVisible());
    EXPECT_TRUE(updater->canCheckForUpdates());
}

}  // namespace
