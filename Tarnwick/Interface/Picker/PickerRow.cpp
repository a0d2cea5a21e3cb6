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

PickerRepository::PickerRepository(const PullRequestKit::RepositorySummary& repository)
    : summary(repository)
    , name(text(nameOf(repository.fullName)))
    , details(PickerWording::details(repository))
    , searchText(folded(text(repository.fullName)))
    , isPrivate(PickerWording::isPrivate(repository))
{}

}  // namespace Tarnwick
