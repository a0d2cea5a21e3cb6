#include "Tarnwick/Interface/Picker/PickerRow.h"

#include "Tarnwick/Interface/List/FindText.h"
#include "Tarnwick/Interface/Picker/PickerWording.h"
#include "Tarnwick/Interface/Picker/RepositoryGroups.h"

namespace Tarnwick {
namespace {

QString text(std::string_view name)
{
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

RepositoryLabel::RepositoryLabel(const PullRequestKit::RepositorySummary& summary)
    : repository(summary)
    , name(text(nameOf(summary.fullName)))
    , details(PickerWording::details(summary))
    , searchText(folded(text(summary.fullName)))
    , isPrivate(PickerWording::isPrivate(summary))
{}

}  // namespace Tarnwick
