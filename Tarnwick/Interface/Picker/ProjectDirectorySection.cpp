#include "Tarnwick/Interface/Picker/ProjectDirectorySection.h"

#include "Tarnwick/Async/Worker.h"
#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Controls/TextField.h"
#include "Tarnwick/Interface/Controls/TextLine.h"
#include "Tarnwick/Interface/Picker/PickerWording.h"
#include "Tarnwick/Interface/Style/Painting.h"
#include "Tarnwick/Model/OpenInEditor.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <QDir>
#include <QFileDialog>
#include <QFontMetricsF>
#include <QVBoxLayout>

#include <filesystem>
#include <system_error>

namespace Tarnwick {
namespace {

constexpr int lineGap = 6;
constexpr int buttonGap = 8;
constexpr int fieldHeight = 32;

/// The initial folder of the dialog, with "~" expanded.
QString startFolder(const QString& directory)
{
    if (directory == QLatin1String("~") || directory.startsWith(QLatin1String("~/"))) {
        return QDir::homePath() + directory.mid(1);
    }
    return directory.isEmpty() ? QDir::homePath() : directory;
}

}  // namespace

ProjectDirectorySection::ProjectDirectorySection(PullRequestMenuModel& model, QWidget* parent)
    : QWidget(parent)
    , _model(model)
    , _title(new TextLine(
          QStringLiteral("Project Directory"),
          {.style = TextStyle::body, .weight = TextWeight::medium},
          this))
    , _field(new TextField(QString(), fieldHeight, this))
    , _choose(new PushButton(QStringLiteral("Choose…"), PushButton::Kind::plain, this))
    , _note(new TextLine(
          QString(),
          {.style = TextStyle::footnote,
           .weight = TextWeight::regular,
           .color = &Palette::textTertiary},
          this))
{
    _title->setObjectName(QStringLiteral("projectDirectoryTitle"));
    _note->setObjectName(QStringLiteral("projectDirectoryNote"));
    _choose->setObjectName(QStringLiteral("chooseProjectDirectory"));
    _choose->setAccessibleName(QStringLiteral("Choose project directory"));
    _field->setObjectName(QStringLiteral("projectDirectory"));
    _field->setAccessibleName(_title->text());
    _field->setPlaceholderText(QStringLiteral("/path/to/projects"));
    _title->setBuddy(_field);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(lineGap);
    auto* const row = new QHBoxLayout;
    row->setSpacing(buttonGap);
    row->addWidget(_field);
    row->addWidget(_choose);
    column->addWidget(_title);
    column->addLayout(row);
    column->addWidget(_note);

    connect(_field, &QLineEdit::textEdited, &model, [&model](const QString& text) {
        model.setProjectDirectory(text.toStdString());
    });
    connect(_choose, &QAbstractButton::clicked, this, &ProjectDirectorySection::choose);
    connect(
        &model,
        &PullRequestMenuModel::settingsChanged,
        this,
        &ProjectDirectorySection::showSetting);
    showSetting();
}

QLineEdit& ProjectDirectorySection::field() const
{
    return *_field;
}

QString ProjectDirectorySection::setting() const
{
    return QString::fromStdString(_model.settings().projectDirectory);
}

void ProjectDirectorySection::showSetting()
{
    if (_field->text() != setting()) {
        _field->setText(setting());
    }
    if (isVisible()) {
        lookForFolder();
    }
    showNote();
}

/// On a worker thread, because a network folder may be slow. Checks again if the text changed
/// meanwhile.
QCoro::Task<> ProjectDirectorySection::lookForFolder()
{
    const QPointer<ProjectDirectorySection> self(this);
    const QString asked = setting();
    const std::filesystem::path folder = projectFolder(asked.toStdString());
    auto looking = onWorker([folder] {
        std::error_code error;
        return folder.empty() || std::filesystem::is_directory(folder, error);
    });
    const bool isThere = co_await looking;
    if (self != nullptr && asked == setting()) {
        _missing = isThere ? QString() : asked;
        showNote();
    }
}

/// Elides the path if the note is too long.
void ProjectDirectorySection::showNote()
{
    const bool isMissing = !_missing.isEmpty() && _missing == setting();
    PickerWording::DirectoryNote note =
        isMissing ? PickerWording::missingNote(setting()) : PickerWording::directoryNote(setting());
    _note->setAccessibleName(note.text());
    const LineStyle style = _note->lineStyle();
    const double room =
        _note->width() - Painting::width(note.before, style) - Painting::width(note.after, style);
    const QString whole = note.directory;
    note.directory = QFontMetricsF(style.font).elidedText(whole, Qt::ElideMiddle, room);
    _note->setText(note.text());
    _note->setToolTip(note.directory == whole ? QString() : whole);
}

void ProjectDirectorySection::choose()
{
    if (_dialog != nullptr) {
        _dialog->raise();
        return;
    }
    _dialog = new QFileDialog(this, _title->text(), startFolder(setting()));
    _dialog->setObjectName(QStringLiteral("projectDirectoryDialog"));
    _dialog->setAttribute(Qt::WA_DeleteOnClose);
    _dialog->setFileMode(QFileDialog::Directory);
    _dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(_dialog, &QFileDialog::fileSelected, this, [this](const QString& folder) {
        _model.setProjectDirectory(folder.toStdString());
    });
    _dialog->open();
}

}  // namespace Tarnwick
