#include "TarnwickDirect/SoftwareUpdate/UpdateDialog.h"

#include "Fakes/EventLoop.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;
using enum UpdateAction;

UpdatePage availablePage()
{
    return {
        .title = QStringLiteral("A new version of Tarnwick is available!"),
        .message = QStringLiteral("Tarnwick 2.0 is available, and you have 1.0."),
        .notes = QStringLiteral("Calmer."),
        .actions = {skip, remindLater, install}};
}

UpdatePage busyPage()
{
    return {.title = QStringLiteral("Working…"), .isBusy = true, .actions = {cancel}};
}

UpdatePage downloadPage(double progress)
{
    return {.title = QStringLiteral("Downloading…"), .progress = progress, .actions = {cancel}};
}

class UpdateDialogTest : public testing::Test {
protected:
    UpdateDialogTest()
    {
        QObject::connect(&dialog, &UpdateDialog::triggered, [this](UpdateAction action) {
            actions.push_back(action);
        });
    }

    QString text(const char* name)
    {
        return dialog.findChild<QLabel*>(QString::fromLatin1(name))->text();
    }

    QProgressBar& bar() { return *dialog.findChild<QProgressBar*>(); }

    /// The buttons that can be seen, from the left.
    std::vector<QPushButton*> buttons()
    {
        std::vector<QPushButton*> buttons;
        for (auto* const button : dialog.findChildren<QPushButton*>()) {
            if (button->isVisible()) {
                buttons.push_back(button);
            }
        }
        std::ranges::sort(buttons, {}, &QWidget::x);
        return buttons;
    }

    /// Everything lies in the dialog, and nothing on something else.
    void expectOrder()
    {
        std::vector<QRect> parts;
        for (const auto* const part :
             dialog.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (part->isVisible()) {
                EXPECT_TRUE(dialog.rect().contains(part->geometry())) << part->y();
                for (const QRect& other : parts) {
                    EXPECT_FALSE(part->geometry().intersects(other));
                }
                parts.push_back(part->geometry());
            }
        }
        EXPECT_EQ(parts.size(), 6U);
        EXPECT_LE(dialog.height(), dialog.screen()->availableGeometry().height());
    }

    int arrivals = 0;  ///< How often the dialog was brought to the front.
    UpdateDialog dialog{[this](QWidget& window) {
        ++arrivals;
        window.show();
        window.activateWindow();
    }};
    std::vector<UpdateAction> actions;
};

TEST_F(UpdateDialogTest, showsThePage)
{
    EXPECT_FALSE(dialog.isVisible());
    dialog.setPage(availablePage());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(text("updateTitle"), QStringLiteral("A new version of Tarnwick is available!"));
    EXPECT_EQ(
        text("updateMessage"), QStringLiteral("Tarnwick 2.0 is available, and you have 1.0."));
    EXPECT_EQ(text("updateNotes"), QStringLiteral("Calmer."));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Software Update"));
    EXPECT_FALSE(bar().isVisible());
    dialog.setPage(std::nullopt);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(UpdateDialogTest, hasAButtonForEachAction)
{
    dialog.setPage(availablePage());
    std::vector<QString> texts;
    for (auto* const button : buttons()) {
        texts.push_back(button->text());
        button->click();
    }
    EXPECT_THAT(
        texts,
        ElementsAre(
            QStringLiteral("Skip This Version"),
            QStringLiteral("Remind Me Later"),
            QStringLiteral("Install Update")));
    EXPECT_THAT(actions, ElementsAre(skip, remindLater, install));
}

TEST_F(UpdateDialogTest, nothingOverlapsAndLongNotesAreScrolled)
{
    dialog.setPage(availablePage());
    expectOrder();
    const auto* const notes = dialog.findChild<QScrollArea*>();
    EXPECT_EQ(notes->verticalScrollBar()->maximum(), 0);
    UpdatePage page = availablePage();
    page.notes = QStringLiteral("A long line of notes that is wrapped. ").repeated(200);
    dialog.setPage(page);
    expectOrder();
    EXPECT_GT(notes->verticalScrollBar()->maximum(), 0);
    EXPECT_LT(dialog.height(), 500);
}

TEST_F(UpdateDialogTest, holdsEverythingInLargeTextOnALowScreen)
{
    QFont large = QApplication::font();
    large.setPointSizeF(large.pointSizeF() * 2);
    dialog.setFont(large);
    UpdatePage page = availablePage();
    page.notes = QStringLiteral("Calmer.\n").repeated(100);
    dialog.setPage(page);
    expectOrder();
    EXPECT_GT(dialog.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

TEST_F(UpdateDialogTest, isADialogToAssistivePrograms)
{
    dialog.setPage(availablePage());
    QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(&dialog);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->role(), QAccessible::Dialog);
    EXPECT_EQ(
        found->text(QAccessible::Name), QStringLiteral("A new version of Tarnwick is available!"));
    const auto* const notes = dialog.findChild<QWidget*>(QStringLiteral("updateNotes"));
    EXPECT_EQ(notes->accessibleDescription(), QStringLiteral("Release notes"));
}

TEST_F(UpdateDialogTest, showsHowFarADownloadIs)
{
    dialog.setPage(downloadPage(0.25));
    EXPECT_TRUE(bar().isVisible());
    QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(&bar());
    EXPECT_EQ(found->role(), QAccessible::ProgressBar);
    ASSERT_NE(found->valueInterface(), nullptr);
    EXPECT_EQ(found->valueInterface()->currentValue(), QVariant(25));
    EXPECT_EQ(found->valueInterface()->maximumValue(), QVariant(100));
    auto* const button = buttons().at(0);
    dialog.setPage(downloadPage(0.5));
    EXPECT_EQ(bar().value(), 50);
    EXPECT_EQ(buttons().at(0), button);
}

TEST_F(UpdateDialogTest, showsThatSomethingRuns)
{
    dialog.setPage(busyPage());
    EXPECT_TRUE(bar().isVisible());
    EXPECT_EQ(bar().maximum(), 0);
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
    dialog.close();
    EXPECT_THAT(actions, ElementsAre(remindLater, remindLater));
}

TEST_F(UpdateDialogTest, doesNotPreventTheSessionsEnd)
{
    QObject::connect(&dialog, &UpdateDialog::triggered, [this] { dialog.setPage(std::nullopt); });
    dialog.setPage(busyPage());
    EXPECT_TRUE(dialog.close());
    EXPECT_FALSE(dialog.isVisible());
    dialog.setPage(availablePage());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(UpdateDialogTest, comesToTheFrontOnce)
{
    dialog.setPage(busyPage());
    EXPECT_EQ(arrivals, 1);
    dialog.setPage(availablePage());
    EXPECT_EQ(arrivals, 1);
    dialog.setPage(std::nullopt);
    dialog.setPage(busyPage());
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
    QObject::connect(&dialog, &UpdateDialog::triggered, [this] { dialog.setPage(busyPage()); });
    buttons().back()->click();
    processEvents();
    EXPECT_EQ(buttons().size(), 1U);
}

}  // namespace
