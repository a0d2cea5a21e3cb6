#include "Picker/PickerFixture.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>

namespace Tarnwick {
namespace {

using namespace TestSupport;

/// From top to bottom.
const std::vector<std::string> controls{
    "done",
    "findRepository",
    "projectDirectory",
    "chooseProjectDirectory",
    "selectAll",
    "selectNone",
    "repositories"};

class RepositoryPickerTests : public PickerTest {
protected:
    QString textOf(const char* label) const { return part<QLabel>(label)->text(); }

    void press(const char* button) const { part<QAbstractButton>(button)->click(); }

    QLineEdit* directoryField() const { return part<QLineEdit>("projectDirectory"); }

    /// Opens the picker and types a path over the one that is there.
    void openAndType(const char* path)
    {
        open(someRepositories());
        directoryField()->setFocus();
        QTest::keyClicks(directoryField(), QLatin1String(path));
    }

    bool noteBecomes(const char* note) const
    {
        return eventually([&] { return textOf("projectDirectoryNote") == QLatin1String(note); });
    }

    QFileDialog* dialog() const { return picker->findChild<QFileDialog*>(); }

    std::string directory() const { return model->settings().projectDirectory; }

    /// Everything up to the button has been painted where it can be seen.
    bool isShown(const char* name) const { return part<QWidget>(name)->isVisible(); }

    QRect placeOf(const char* name) const
    {
        const QWidget* const widget = part<QWidget>(name);
        return {widget->mapTo(picker.get(), QPoint()), widget->size()};
    }
};

TEST_F(RepositoryPickerTests, saysWhatItIsFor)
{
    open(someRepositories(), {"fenland/capstan", "gone/away"});
    EXPECT_EQ(textOf("repositoryPickerTitle"), QStringLiteral("Repositories"));
    EXPECT_EQ(part<QAbstractButton>("done")->text(), QStringLiteral("Done"));
    EXPECT_EQ(textOf("projectDirectoryTitle"), QStringLiteral("Project Directory"));
    EXPECT_EQ(directoryField()->placeholderText(), QStringLiteral("/path/to/projects"));
    EXPECT_EQ(part<QAbstractButton>("chooseProjectDirectory")->text(), QStringLiteral("Choose…"));
    EXPECT_EQ(findField()->placeholderText(), QStringLiteral("Find a repository"));
    EXPECT_EQ(part<QAbstractButton>("selectAll")->text(), QStringLiteral("Select All"));
    EXPECT_EQ(part<QAbstractButton>("selectNone")->text(), QStringLiteral("Select None"));
    // A selected repository that is not listed counts.
    EXPECT_EQ(textOf("selectedCount"), QStringLiteral("2 selected"));
}

TEST_F(RepositoryPickerTests, everyControlHasAnAccessibleName)
{
    open(someRepositories());
    for (const std::string& name : controls) {
        EXPECT_FALSE(part<QWidget>(name.c_str())->accessibleName().isEmpty()) << name;
    }
    EXPECT_EQ(picker->accessibleName(), QStringLiteral("Repositories"));
}

TEST_F(RepositoryPickerTests, theDesignsMeasuresHold)
{
    open(someRepositories());
    EXPECT_EQ(placeOf("projectDirectoryTitle"), QRect(16, 94, 388, 18));
    EXPECT_EQ(placeOf("projectDirectoryNote"), QRect(16, 156, 388, 16));
    EXPECT_EQ(placeOf("repositories"), QRect(0, 227, 420, 373));
    EXPECT_EQ(placeOf("done").right() + 1, 404);
    EXPECT_EQ(placeOf("done").height(), 26);
    EXPECT_EQ(placeOf("selectNone").top(), 193);
    EXPECT_EQ(placeOf("chooseProjectDirectory").top(), 118);
    EXPECT_EQ(placeOf("chooseProjectDirectory").height(), 32);
}

TEST_F(RepositoryPickerTests, theFocusStartsInTheFindField)
{
    open(someRepositories());
    EXPECT_TRUE(findField()->hasFocus());
}

TEST_F(RepositoryPickerTests, tabGoesFromTopToBottom)
{
    open(someRepositories());
    part<QWidget>("done")->setFocus();
    std::vector<std::string> names;
    for (int step = 0; step < 7; ++step) {
        names.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(names, controls);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("done"));
}

TEST_F(RepositoryPickerTests, selectAllAndSelectNone)
{
    open(someRepositories(), {"gone/away"});
    press("selectAll");
    EXPECT_EQ(selected().size(), 6U);
    EXPECT_EQ(textOf("selectedCount"), QStringLiteral("6 selected"));
    EXPECT_EQ(rows().at(1), "capstan+");
    press("selectNone");
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_EQ(textOf("selectedCount"), QStringLiteral("0 selected"));
    EXPECT_EQ(rows().at(1), "capstan");
}

TEST_F(RepositoryPickerTests, aSelectionIsStored)
{
    open(someRepositories());
    press("selectAll");
    EXPECT_EQ(Tarnwick::readTextList(*defaults, "filters.repositories")->size(), 6);
}

TEST_F(RepositoryPickerTests, whileFindingTheButtonsActOnWhatIsShown)
{
    open(someRepositories(), {"northmere/quay"});
    QTest::keyClicks(findField(), QStringLiteral("harbour"));
    EXPECT_THAT(rows(), ElementsAre("fenland:", "harbour-9", "harbour-10"));
    press("selectAll");
    EXPECT_THAT(
        selected(), ElementsAre("fenland/harbour-10", "fenland/harbour-9", "northmere/quay"));
    press("selectNone");
    EXPECT_THAT(selected(), ElementsAre("northmere/quay"));
}

TEST_F(RepositoryPickerTests, withoutHitsItSaysNoMatches)
{
    open(someRepositories(), {"northmere/quay"});
    QTest::keyClicks(findField(), QStringLiteral("nowhere"));
    EXPECT_TRUE(isShown("noticeMessage"));
    EXPECT_EQ(textOf("noticeMessage"), QStringLiteral("No matches"));
    EXPECT_FALSE(isShown("noticeTitle"));
    EXPECT_FALSE(isShown("repositories"));
    press("selectAll");
    press("selectNone");
    EXPECT_THAT(selected(), ElementsAre("northmere/quay"));
    findField()->clear();
    EXPECT_TRUE(isShown("repositories"));
    EXPECT_FALSE(isShown("noticeMessage"));
}

TEST_F(RepositoryPickerTests, beforeTheFirstAnswerItDoesNotSayThatThereAreNone)
{
    start();
    picker = std::make_unique<RepositoryPicker>(*model);
    picker->resize(420, 600);
    picker->show();
    EXPECT_EQ(textOf("noticeTitle"), QStringLiteral("Repositories are not loaded yet"));
    refresh();
    EXPECT_EQ(textOf("noticeTitle"), QStringLiteral("No repositories"));
}

TEST_F(RepositoryPickerTests, withoutRepositoriesItSaysSo)
{
    open({}, {"gone/away"});
    EXPECT_TRUE(isShown("noticeTitle"));
    EXPECT_EQ(textOf("noticeTitle"), QStringLiteral("No repositories"));
    EXPECT_FALSE(isShown("repositories"));
    // All of nothing would take the selection of an earlier day away.
    press("selectAll");
    EXPECT_THAT(selected(), ElementsAre("gone/away"));
    press("selectNone");
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(RepositoryPickerTests, repositoriesAppearWhenTheyAreKnown)
{
    open({});
    provider->setRepositories({"fenland/capstan"});
    refresh();
    EXPECT_THAT(rows(), ElementsAre("fenland:", "capstan"));
    EXPECT_TRUE(isShown("repositories"));
    EXPECT_FALSE(isShown("noticeTitle"));
}

TEST_F(RepositoryPickerTests, downAndReturnGoFromTheFieldToTheFirstRepository)
{
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return}) {
        open(someRepositories());
        QTest::keyClicks(findField(), QStringLiteral("quay"));
        QTest::keyClick(findField(), key);
        EXPECT_TRUE(list()->hasFocus());
        EXPECT_EQ(list()->currentIndex().data().toString(), QStringLiteral("quay"));
        QTest::keyClick(list(), Qt::Key_Space);
        EXPECT_THAT(selected(), ElementsAre("northmere/quay"));
    }
}

TEST_F(RepositoryPickerTests, escapeClearsTheFieldAndThenCloses)
{
    open(someRepositories());
    QTest::keyClicks(findField(), QStringLiteral("quay"));
    QTest::keyClick(findField(), Qt::Key_Escape);
    EXPECT_EQ(findField()->text(), QString());
    EXPECT_EQ(doneCount, 0);
    QTest::keyClick(findField(), Qt::Key_Escape);
    EXPECT_EQ(doneCount, 1);
}

TEST_F(RepositoryPickerTests, escapeInTheListDoesTheSame)
{
    open(someRepositories());
    QTest::keyClicks(findField(), QStringLiteral("quay"));
    QTest::keyClick(findField(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_EQ(findField()->text(), QString());
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_EQ(doneCount, 1);
}

TEST_F(RepositoryPickerTests, doneCloses)
{
    open(someRepositories());
    press("done");
    EXPECT_EQ(doneCount, 1);
}

TEST_F(RepositoryPickerTests, settingAndNoteFollowEveryKeystroke)
{
    openAndType("/no");
    EXPECT_EQ(directory(), "/no");
    EXPECT_TRUE(noteBecomes("The folder /no does not exist."));
    QTest::keyClicks(directoryField(), QStringLiteral("where"));
    EXPECT_EQ(directory(), "/nowhere");
    EXPECT_TRUE(noteBecomes("The folder /nowhere does not exist."));
    QTest::keyClick(directoryField(), Qt::Key_Return);
    EXPECT_EQ(directory(), "/nowhere");
    EXPECT_EQ(doneCount, 0);
}

TEST_F(RepositoryPickerTests, theNoteSaysWhenTheFolderDoesNotExist)
{
    open(someRepositories());
    QDir(folder.path()).mkdir(QStringLiteral("clones"));
    directoryField()->setFocus();
    QTest::keyClicks(directoryField(), QStringLiteral("/nowhere"));
    EXPECT_TRUE(noteBecomes("The folder /nowhere does not exist."));
    directoryField()->selectAll();
    QTest::keyClicks(directoryField(), QStringLiteral("/tmp"));
    EXPECT_TRUE(noteBecomes("Repositories open from /tmp/<repository>."));
    directoryField()->selectAll();
    QTest::keyClick(directoryField(), Qt::Key_Delete);
    EXPECT_TRUE(noteBecomes("Repositories open from <project directory>/<repository>."));
}

TEST_F(RepositoryPickerTests, escapeKeepsTheTypedPathAndGoesBack)
{
    open(someRepositories());
    model->setProjectDirectory("/srv/code");
    directoryField()->setFocus();
    QTest::keyClicks(directoryField(), QStringLiteral("/more"));
    QTest::keyClick(directoryField(), Qt::Key_Escape);
    EXPECT_EQ(doneCount, 1);
    EXPECT_EQ(directory(), "/srv/code/more");
}

TEST_F(RepositoryPickerTests, aPathThatComesFromElsewhereIsShown)
{
    openAndType("/srv");
    model->setProjectDirectory("/home/mira/code");
    EXPECT_EQ(directoryField()->text(), QStringLiteral("/home/mira/code"));
}

TEST_F(RepositoryPickerTests, aChangedSelectionLeavesThePathAlone)
{
    openAndType("/srv");
    model->toggleRepository("fenland/capstan");
    EXPECT_EQ(directoryField()->text(), QStringLiteral("/srv"));
}

TEST_F(RepositoryPickerTests, anUntouchedPathIsNotWrittenAgain)
{
    open(someRepositories());
    model->setProjectDirectory("/srv/code");
    defaults->writtenKeys.clear();
    directoryField()->setFocus();
    QTest::keyClick(directoryField(), Qt::Key_Return);
    press("done");
    EXPECT_THAT(defaults->writtenKeys, IsEmpty());
}

TEST_F(RepositoryPickerTests, aLongPathIsShortenedInTheMiddleOfTheNote)
{
    open(someRepositories());
    const std::string path = "/home/mira/" + std::string(120, 'p') + "/projects";
    model->setProjectDirectory(path);
    const QString end = QStringLiteral("/projects does not exist.");
    EXPECT_TRUE(eventually([&] { return textOf("projectDirectoryNote").endsWith(end); }));
    const QString note = textOf("projectDirectoryNote");
    EXPECT_TRUE(note.startsWith(QStringLiteral("The folder /home/mira/"))) << note.toStdString();
    EXPECT_TRUE(note.contains(u'…'));
    EXPECT_EQ(
        part<QLabel>("projectDirectoryNote")->accessibleName().toStdString(),
        "The folder " + path + " does not exist.");
    EXPECT_EQ(part<QLabel>("projectDirectoryNote")->toolTip().toStdString(), path);
}

TEST_F(RepositoryPickerTests, theFolderDialogKeepsThePanelOpenAndGivesThePath)
{
    open(someRepositories());
    model->setProjectDirectory(folder.path().toStdString());
    EXPECT_FALSE(picker->keepsOpen());
    press("chooseProjectDirectory");
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(picker->keepsOpen());
    EXPECT_EQ(dialog()->fileMode(), QFileDialog::Directory);
    EXPECT_EQ(dialog()->directory().absolutePath(), folder.path());

    QDir(folder.path()).mkdir(QStringLiteral("clones"));
    const QString chosen = folder.filePath(QStringLiteral("clones"));
    dialog()->selectFile(chosen);
    QMetaObject::invokeMethod(dialog(), "accept");
    processEvents();
    EXPECT_FALSE(picker->keepsOpen());
    EXPECT_EQ(directory(), chosen.toStdString());
    EXPECT_EQ(directoryField()->text(), chosen);
}

TEST_F(RepositoryPickerTests, aDismissedFolderDialogChangesNothing)
{
    open(someRepositories());
    model->setProjectDirectory(folder.path().toStdString());
    press("chooseProjectDirectory");
    dialog()->reject();
    processEvents();
    EXPECT_FALSE(picker->keepsOpen());
    EXPECT_EQ(directory(), folder.path().toStdString());
}

TEST_F(RepositoryPickerTests, theTextSizeMovesEverything)
{
    Appearance& appearance = setApplicationStyle(1);
    open(someRepositories());
    appearance.setTextScale(1.5);
    picker->resize(630, 900);
    processEvents();
    // 66 of head, 10, 42 of field, 12, the section, 12, 1 and 64 of summary.
    EXPECT_EQ(list()->y(), 66 + 10 + 42 + 12 + (28 + 6 + 48 + 6 + 24) + 12 + 1 + 64);
}

}  // namespace
}  // namespace Tarnwick
