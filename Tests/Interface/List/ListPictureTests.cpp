#include "List/SampleRows.h"
#include "Support/Pictures.h"
#include "Tarnwick/Interface/List/FindBar.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <memory>
#include <utility>

namespace Tarnwick {
namespace {

struct Sheet {
    double textScale = 1;
    bool isDark = false;
    bool higherContrast = false;
    int width = 420;
    int height = 640;
    double scaleFactor = 1;
    QString findText = {};
    bool hasHidden = false;
    bool isByTurn = false;
    int scrolledBy = 0;
    bool hasChanges = false;
};

/// Without the rows whose characters no bundled font has.
std::vector<ListedRow> latinRows()
{
    std::vector<ListedRow> rows = TestSupport::sampleRows();
    std::erase_if(rows, [](const ListedRow& row) {
        const QString title = QString::fromStdString(row.row->pullRequest.title);
        return title.isRightToLeft() || title.contains(QStringLiteral("🚀"));
    });
    return rows;
}

/// The list with the pointer on its fifth row, if there are as many.
QImage listPicture(const Sheet& sheet)
{
    Appearance& appearance = setApplicationStyle(sheet.textScale);
    appearance.setDark(sheet.isDark);
    appearance.setPreferences({.reducedMotion = true, .higherContrast = sheet.higherContrast});
    PullRequestListModel model(TestSupport::sampleNow);
    std::vector<ListedRow> rows = sheet.isByTurn ? TestSupport::turnRows() : latinRows();
    if (sheet.hasHidden) {
        rows[2].sight = Sight::hiddenByStatus;
        rows[4].sight = Sight::hiddenByChecks;
        rows[5].sight = Sight::hiddenByReviews;
    }
    if (sheet.hasChanges) {
        for (const std::size_t row : {0U, 1U, 4U, 5U}) {
            rows[row].since = {
                TestSupport::sampleNow() - std::chrono::hours(48),
                {{PullRequestKit::ChangeKind::approved, {}, {}}}};
            rows[row].isVisited = false;
        }
        rows[5].sight = Sight::hiddenByStatus;
    }
    model.setRows(std::move(rows));
    model.setFindText(sheet.findText);
    PullRequestListView view(model);
    view.setAttribute(Qt::WA_DontShowOnScreen);
    view.resize(sheet.width, sheet.height);
    view.show();
    view.verticalScrollBar()->setValue(sheet.scrolledBy);
    const QPointF pointer =
        view.visualRect(model.index(std::min(4, model.rowCount() - 1))).center();
    QMouseEvent move(
        QEvent::MouseMove,
        pointer,
        view.viewport()->mapToGlobal(pointer),
        Qt::NoButton,
        Qt::NoButton,
        Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    return pictureOf(view, sheet.scaleFactor);
}

TEST(ListPictures, rowsOfEveryKind)
{
    expectPicture(listPicture({}), "list-light");
    expectPicture(listPicture({.isDark = true, .scaleFactor = 1.5}), "list-dark-150");
}

TEST(ListPictures, higherContrastAndLargerText)
{
    expectPicture(
        listPicture({.isDark = true, .higherContrast = true, .height = 400, .scaleFactor = 1.25}),
        "list-contrast-125");
    expectPicture(listPicture({.textScale = 1.5, .width = 630, .height = 700}), "list-large-text");
}

TEST(ListPictures, hiddenRowsStandWithoutColor)
{
    expectPicture(listPicture({.hasHidden = true}), "list-hidden-light");
    expectPicture(
        listPicture(
            {.isDark = true,
             .higherContrast = true,
             .width = 360,
             .scaleFactor = 1.5,
             .hasHidden = true}),
        "list-hidden-dark-150");
}

TEST(ListPictures, dotsMarkWhatHasChanged)
{
    expectPicture(listPicture({.height = 400, .hasChanges = true}), "list-changed-light");
    expectPicture(
        listPicture(
            {.isDark = true,
             .higherContrast = true,
             .width = 360,
             .height = 400,
             .scaleFactor = 1.5,
             .hasChanges = true}),
        "list-changed-dark-150");
}

TEST(ListPictures, platesMarkWhatIsFound)
{
    expectPicture(
        listPicture({.height = 400, .findText = QStringLiteral("quay ses")}), "list-find");
    expectPicture(
        listPicture(
            {.isDark = true,
             .width = 360,
             .height = 500,
             .scaleFactor = 1.5,
             .findText = QStringLiteral("mere")}),
        "list-find-dark-150");
}

TEST(ListPictures, groupsByWhoseTurnItIs)
{
    expectPicture(listPicture({.height = 560, .isByTurn = true}), "list-turn-light");
    expectPicture(
        listPicture(
            {.isDark = true,
             .height = 400,
             .scaleFactor = 1.5,
             .isByTurn = true,
             .scrolledBy = 290}),
        "list-turn-stuck-dark-150");
    expectPicture(
        listPicture(
            {.textScale = 1.5, .width = 540, .height = 700, .hasHidden = true, .isByTurn = true}),
        "list-turn-large-text");
}

/// The menu and its open submenu, as they stand on the screen.
QImage menuPicture(const ListedRow& row, bool isDark)
{
    constexpr int gap = 4;
    constexpr double scaleFactor = 1.5;
    Appearance& appearance = setApplicationStyle(1.0);
    appearance.setDark(isDark);
    const std::unique_ptr<Menu> menu(makeRowMenu(row, "robin-k", [](RowAction) {}, nullptr));
    std::vector<QMenu*> menus{menu.get()};
    for (const QAction* const action : menu->actions()) {
        if (action->menu() != nullptr) {
            menus.push_back(action->menu());
        }
    }
    std::vector<QImage> pictures;
    for (QMenu* const shown : menus) {
        shown->setAttribute(Qt::WA_DontShowOnScreen);
        shown->show();
        shown->resize(shown->sizeHint());
        pictures.push_back(pictureOf(*shown, scaleFactor));
    }
    QSize size;
    for (const QImage& picture : pictures) {
        size = {size.width() + gap + picture.width(), std::max(size.height(), picture.height())};
    }
    QImage sheet(size, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(isDark ? Qt::black : Qt::white);
    QPainter painter(&sheet);
    int left = 0;
    for (QImage& picture : pictures) {
        picture.setDevicePixelRatio(1);
        painter.drawImage(left, 0, picture);
        left += picture.width() + gap;
    }
    return sheet;
}

TEST(ListPictures, theRowsMenus)
{
    ListedRow row = latinRows()[0];
    expectPicture(menuPicture(row, false), "row-menu-light");
    row.sight = Sight::authorMuted;
    TestSupport::own(row).pullRequest.checks = {};
    expectPicture(menuPicture(row, true), "row-menu-muted-dark");
}

TEST(ListPictures, theFindBar)
{
    Appearance& appearance = setApplicationStyle(1.0);
    appearance.setPreferences({.reducedMotion = true, .higherContrast = false});
    QWidget panel;
    panel.resize(420, 80);
    FindBar bar(&panel);
    bar.resize(420, 0);
    bar.open();
    bar.findChild<QLineEdit*>(QStringLiteral("findField"))->setText(QStringLiteral("north"));
    bar.setMatches(7, 12);
    expectPicture(pictureOf(bar, 2), "find-bar");
}

}  // namespace
}  // namespace Tarnwick
