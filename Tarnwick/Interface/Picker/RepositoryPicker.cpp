#include "Tarnwick/Interface/Picker/RepositoryPicker.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Controls/TextField.h"
#include "Tarnwick/Interface/Controls/TextLine.h"
#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Picker/PickerLayout.h"
#include "Tarnwick/Interface/Picker/PickerListView.h"
#include "Tarnwick/Interface/Picker/PickerPlaceholder.h"
#include "Tarnwick/Interface/Picker/PickerWording.h"
#include "Tarnwick/Interface/Picker/ProjectDirectorySection.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace Tarnwick {
namespace {

PushButton* smallButton(
    const QString& text, PushButton::Kind kind, const Appearance& appearance, QWidget* parent)
{
    return new PushButton(text, kind, appearance, parent, PushButton::Size::small);
}

}  // namespace

RepositoryPicker::RepositoryPicker(
    PullRequestMenuModel& model, const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _model(model)
    , _appearance(appearance)
    , _title(new TextLine(
          QStringLiteral("Repositories"),
          {.style = TextStyle::title2, .weight = TextWeight::bold},
          appearance,
          this))
    , _done(smallButton(QStringLiteral("Done"), PushButton::Kind::primary, appearance, this))
    , _find(new TextField(QStringLiteral("tarnwick-find"), appearance, this))
    , _directory(new ProjectDirectorySection(model, appearance, this))
    , _count(new TextLine(QString(), {.colour = &Palette::textSecondary}, appearance, this))
    , _selectAll(
          smallButton(QStringLiteral("Select All"), PushButton::Kind::plain, appearance, this))
    , _selectNone(
          smallButton(QStringLiteral("Select None"), PushButton::Kind::plain, appearance, this))
    , _list(new PickerListView(_rows, appearance, this))
    , _placeholder(new PickerPlaceholder(appearance, this))
{
    nameParts();
    connectParts();
    showSelection();
    showRepositories();
}

RepositoryPicker::~RepositoryPicker()
{
    // The list before the rows that it shows, and a field with the focus while there still is
    // somebody to hear what it says on losing it.
    delete _list;
    delete _directory;
}

void RepositoryPicker::nameParts()
{
    setObjectName(QStringLiteral("repositoryPicker"));
    setAccessibleName(_title->text());
    _title->setObjectName(QStringLiteral("repositoryPickerTitle"));
    _done->setObjectName(QStringLiteral("done"));
    _find->edit().setObjectName(QStringLiteral("findRepository"));
    _find->edit().setPlaceholderText(QStringLiteral("Find a repository"));
    _find->edit().setAccessibleName(QStringLiteral("Find a repository"));
    _count->setObjectName(QStringLiteral("selectedCount"));
    _selectAll->setObjectName(QStringLiteral("selectAll"));
    _selectNone->setObjectName(QStringLiteral("selectNone"));
    _list->setObjectName(QStringLiteral("repositories"));
}

void RepositoryPicker::connectParts()
{
    connect(_done, &QAbstractButton::clicked, this, &RepositoryPicker::finish);
    connect(_selectAll, &QAbstractButton::clicked, this, [this] { selectShown(true); });
    connect(_selectNone, &QAbstractButton::clicked, this, [this] { selectShown(false); });
    connect(&_find->edit(), &QLineEdit::textChanged, this, &RepositoryPicker::find);
    connect(_list, &PickerListView::leftUpwards, this, [this] {
        _find->edit().setFocus(Qt::BacktabFocusReason);
    });
    connect(_list, &PickerListView::typed, this, [this](const QString& text) {
        _find->edit().setFocus(Qt::ShortcutFocusReason);
        _find->edit().end(false);
        _find->edit().insert(text);
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
    connect(&_appearance, &Appearance::changed, this, [this] {
        layOut();
        update();
    });
}

void RepositoryPicker::editProjectDirectory()
{
    auto& edit = dynamic_cast<QLineEdit&>(_directory->field());
    edit.setFocus(Qt::OtherFocusReason);
    edit.selectAll();
}

bool RepositoryPicker::keepsOpen() const
{
    return _directory->isChoosing();
}

// What is shown

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
    _placeholder->setVisible(!hasRows);
    if (_rows.isEmpty() && !_model.lastRefreshed()) {
        _placeholder->showNotLoaded();
    } else if (_rows.isEmpty()) {
        _placeholder->showNoRepositories();
    } else {
        _placeholder->showNoMatches();
    }
    // "Select All" without rows would take the selection away, and "Select None" takes back no
    // more than what was found.
    _selectAll->setEnabled(hasRows);
    _selectNone->setEnabled(hasRows || !_rows.isFinding());
}

void RepositoryPicker::find(const QString& text)
{
    _rows.setFindText(text);
    _list->scrollToTop();
    showRows();
}

// What is done

void RepositoryPicker::selectShown(bool selected)
{
    if (_rows.isFinding()) {
        _model.selectRepositories(_rows.shownNames(), selected);
    } else {
        _model.selectAllRepositories(selected);
    }
}

void RepositoryPicker::finish()
{
    Q_EMIT done();
}

/// One step out: what is to be found, then the picker.
void RepositoryPicker::goBack()
{
    if (!_find->edit().text().isEmpty()) {
        _find->edit().clear();
        return;
    }
    Q_EMIT done();
}

void RepositoryPicker::focusInEvent(QFocusEvent* event)
{
    _find->edit().setFocus(event->reason());
}

void RepositoryPicker::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isDown = event->key() == Qt::Key_Down || isReturn;
    if (event->key() == Qt::Key_Escape) {
        goBack();
    } else if (isDown && _find->edit().hasFocus() && _list->isVisible()) {
        _list->enter();
    } else if (!isReturn) {
        QWidget::keyPressEvent(event);
    }
}

// Layout and painting

void RepositoryPicker::layOut()
{
    const PickerLayout layout(
        size(),
        {.done = _done->visibleSize(),
         .selectAll = _selectAll->visibleSize(),
         .selectNone = _selectNone->visibleSize(),
         .titleHeight = _title->sizeHint().height(),
         .countHeight = _count->sizeHint().height(),
         .directoryHeight = _directory->sizeHint().height()},
        _appearance);
    _title->setGeometry(layout.title);
    _done->place(layout.done);
    _find->setGeometry(layout.find);
    _directory->setGeometry(layout.directory);
    _divider = layout.divider;
    _count->setGeometry(layout.count);
    _selectAll->place(layout.selectAll);
    _selectNone->place(layout.selectNone);
    _list->setGeometry(layout.list);
    _placeholder->setGeometry(layout.list);
    _head = layout.head;
}

void RepositoryPicker::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = _appearance.palette();
    painter.fillRect(rect(), palette.surfaceList);
    painter.fillRect(Painting::aligned(painter, QRectF(_head)), palette.surfaceChrome);
    const double pixel = 1 / painter.deviceTransform().m22();
    Painting::hairline(painter, 0, _head.height() - pixel, width(), palette.hairline);
    Painting::hairline(painter, 0, _divider, width(), palette.hairline);
}

void RepositoryPicker::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

void RepositoryPicker::showEvent(QShowEvent* /*event*/)
{
    _find->edit().setFocus(Qt::OtherFocusReason);
}

}  // namespace Tarnwick
