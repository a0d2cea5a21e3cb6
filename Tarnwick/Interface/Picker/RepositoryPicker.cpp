#include "Tarnwick/Interface/Picker/RepositoryPicker.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Controls/TextField.h"
#include "Tarnwick/Interface/Controls/TextLine.h"
#include "Tarnwick/Interface/Panel/Notice.h"
#include "Tarnwick/Interface/Picker/PickerListView.h"
#include "Tarnwick/Interface/Picker/PickerWording.h"
#include "Tarnwick/Interface/Picker/ProjectDirectorySection.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include <initializer_list>

namespace Tarnwick {
namespace {

constexpr int sideMargin = 16;
constexpr int headHeight = 44;
constexpr int findHeight = 28;
constexpr int findGap = 10;
constexpr int sectionGap = 12;
constexpr int dividerHeight = 1;
constexpr int summaryHeight = 42;
constexpr int buttonGap = 8;

PushButton* smallButton(const QString& text, PushButton::Kind kind, QWidget* parent)
{
    return new PushButton(text, kind, parent, PushButton::Size::small);
}

QHBoxLayout* rowOf(QSpacerItem* strut, std::initializer_list<QWidget*> widgets)
{
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(sideMargin, 0, sideMargin, 0);
    row->setSpacing(buttonGap);
    row->addItem(strut);
    for (QWidget* const widget : widgets) {
        row->addWidget(widget, widget == *widgets.begin() ? 1 : 0);
    }
    return row;
}

}  // namespace

RepositoryPicker::RepositoryPicker(PullRequestMenuModel& model, QWidget* parent)
    : QWidget(parent)
    , _model(model)
    , _title(new TextLine(
          QStringLiteral("Repositories"),
          {.style = TextStyle::title2, .weight = TextWeight::bold},
          this))
    , _done(smallButton(QStringLiteral("Done"), PushButton::Kind::primary, this))
    , _find(new TextField(QStringLiteral("tarnwick-find"), findHeight, this))
    , _directory(new ProjectDirectorySection(model, this))
    , _count(new TextLine(QString(), {.color = &Palette::textSecondary}, this))
    , _selectAll(smallButton(QStringLiteral("Select All"), PushButton::Kind::plain, this))
    , _selectNone(smallButton(QStringLiteral("Select None"), PushButton::Kind::plain, this))
    , _list(new PickerListView(_rows, this))
    , _notice(new Notice(this))
    , _head(new QSpacerItem(0, 0))
    , _summary(new QSpacerItem(0, 0))
{
    nameParts();
    layOutParts();
    connectParts();
    showSelection();
    showRepositories();
}

RepositoryPicker::~RepositoryPicker()
{
    // The list must not outlive its rows. A focused field emits a signal when it loses the focus,
    // so it must not outlive its receiver.
    delete _list;
    delete _directory;
}

void RepositoryPicker::nameParts()
{
    setObjectName(QStringLiteral("repositoryPicker"));
    setAccessibleName(_title->text());
    _title->setObjectName(QStringLiteral("repositoryPickerTitle"));
    _done->setObjectName(QStringLiteral("done"));
    _find->setObjectName(QStringLiteral("findRepository"));
    _find->setPlaceholderText(QStringLiteral("Find a repository"));
    _find->setAccessibleName(QStringLiteral("Find a repository"));
    _count->setObjectName(QStringLiteral("selectedCount"));
    _selectAll->setObjectName(QStringLiteral("selectAll"));
    _selectNone->setObjectName(QStringLiteral("selectNone"));
    _list->setObjectName(QStringLiteral("repositories"));
}

void RepositoryPicker::layOutParts()
{
    _list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    auto* const sections = new QVBoxLayout;
    sections->setContentsMargins(sideMargin, findGap, sideMargin, sectionGap);
    sections->setSpacing(sectionGap);
    sections->addWidget(_find);
    sections->addWidget(_directory);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(rowOf(_head, {_title, _done}));
    column->addLayout(sections);
    column->addSpacing(dividerHeight);
    column->addLayout(rowOf(_summary, {_count, _selectAll, _selectNone}));
    column->addWidget(_list, 1);
    column->addWidget(_notice, 1);
    fitRows();
}

void RepositoryPicker::fitRows()
{
    _head->changeSize(0, appearance().scaled(headHeight));
    _summary->changeSize(0, appearance().scaled(summaryHeight));
    layout()->invalidate();
}

void RepositoryPicker::connectParts()
{
    connect(&appearance(), &Appearance::changed, this, &RepositoryPicker::fitRows);
    connect(_done, &QAbstractButton::clicked, this, &RepositoryPicker::done);
    connect(_selectAll, &QAbstractButton::clicked, this, [this] { selectShown(true); });
    connect(_selectNone, &QAbstractButton::clicked, this, [this] { selectShown(false); });
    connect(_find, &QLineEdit::textChanged, this, &RepositoryPicker::find);
    connect(_list, &PickerListView::leftUpwards, this, [this] {
        _find->setFocus(Qt::BacktabFocusReason);
    });
    connect(_list, &PickerListView::typed, this, [this](const QString& text) {
        _find->setFocus(Qt::ShortcutFocusReason);
        _find->end(false);
        _find->insert(text);
    });
    connect(
        &_rows,
        &PickerListModel::toggleRequested,
        &_model,
        &PullRequestMenuModel::toggleRepository);
    connect(
        &_rows,
        &PickerListModel::selectionRequested,
        &_model,
        &PullRequestMenuModel::selectRepositories);
    connect(
        &_model,
        &PullRequestMenuModel::repositoriesChanged,
        this,
        &RepositoryPicker::showRepositories);
    connect(
        &_model, &PullRequestMenuModel::lastRefreshedChanged, this, &RepositoryPicker::showRows);
    connect(
        &_model, &PullRequestMenuModel::settingsChanged, this, &RepositoryPicker::showSelection);
}

void RepositoryPicker::editProjectDirectory()
{
    _directory->field().setFocus(Qt::OtherFocusReason);
    _directory->field().selectAll();
}

bool RepositoryPicker::keepsOpen() const
{
    return _directory->isChoosing();
}

void RepositoryPicker::showRepositories()
{
    _rows.setRepositories(_model.repositories());
    showRows();
}

void RepositoryPicker::showSelection()
{
    const std::set<std::string>& selected = _model.settings().selectedRepositories;
    _rows.setSelection(selected);
    _count->setText(PickerWording::selectedCount(selected.size()));
}

void RepositoryPicker::showRows()
{
    const bool hasRows = _rows.rowCount() > 0;
    _list->setVisible(hasRows);
    _notice->setVisible(!hasRows);
    if (_rows.isEmpty()) {
        _notice->show(
            {.symbol = QStringLiteral("shippingbox"),
             .title = _model.lastRefreshed() ? QStringLiteral("No repositories")
                                             : QStringLiteral("Repositories are not loaded yet")});
    } else {
        _notice->show({.message = QStringLiteral("No matches")});
    }
    // Without rows "Select All" would clear the selection. A search limits both to its hits.
    _selectAll->setEnabled(hasRows);
    _selectNone->setEnabled(hasRows || !_rows.isFinding());
}

void RepositoryPicker::find(const QString& text)
{
    _rows.setFindText(text);
    _list->scrollToTop();
    showRows();
}

void RepositoryPicker::selectShown(bool selected)
{
    if (_rows.isFinding()) {
        _model.selectRepositories(_rows.shownNames(), selected);
    } else {
        _model.selectAllRepositories(selected);
    }
}

/// Clears the search text first, then closes the picker.
void RepositoryPicker::goBack()
{
    if (!_find->text().isEmpty()) {
        _find->clear();
        return;
    }
    Q_EMIT done();
}

void RepositoryPicker::focusInEvent(QFocusEvent* event)
{
    _find->setFocus(event->reason());
}

void RepositoryPicker::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isDown = event->key() == Qt::Key_Down || isReturn;
    if (event->key() == Qt::Key_Escape) {
        goBack();
    } else if (isDown && _find->hasFocus() && _list->isVisible()) {
        _list->setFocus(Qt::TabFocusReason);
    } else if (!isReturn) {
        QWidget::keyPressEvent(event);
    }
}

void RepositoryPicker::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    painter.fillRect(rect(), palette.surfaceList);
    const QRectF head(0, 0, width(), _head->geometry().height());
    painter.fillRect(Painting::aligned(painter, head), palette.surfaceChrome);
    const double pixel = 1 / painter.deviceTransform().m22();
    Painting::hairline(painter, 0, head.height() - pixel, width(), palette.hairline);
    const QRect summary = _summary->geometry();
    for (const int divider : {summary.top() - dividerHeight, summary.bottom() + 1}) {
        Painting::hairline(painter, 0, divider, width(), palette.hairline);
    }
}

void RepositoryPicker::showEvent(QShowEvent* /*event*/)
{
    _find->setFocus(Qt::OtherFocusReason);
}

}  // namespace Tarnwick
