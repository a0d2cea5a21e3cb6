#pragma once

#include "Fakes/ModelFixture.h"
#include "Tarnwick/Interface/Picker/PickerListModel.h"
#include "Tarnwick/Interface/Picker/PickerListView.h"
#include "Tarnwick/Interface/Picker/RepositoryPicker.h"

#include <QLineEdit>
#include <QTest>

namespace Tarnwick {

PullRequestKit::RepositorySummary repositoryOf(
    std::string fullName,
    std::optional<std::string> visibility = {},
    std::optional<std::string> language = {});

/// A picker of 420 by 600 over a model among fakes, which knows these repositories from its cache.
class PickerTest : public TestSupport::ModelTest {
protected:
    /// fenland: capstan, harbour-9 and harbour-10; northmere: almanac, beacon and quay.
    static std::vector<PullRequestKit::RepositorySummary> someRepositories();

    /// Opens the picker and waits until it has the focus.
    void open(
        const std::vector<PullRequestKit::RepositorySummary>& repositories,
        const std::set<std::string>& selected = {});

    template<typename Widget>
    Widget* part(const char* name) const
    {
        Widget* const found = picker->findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) {
            throw std::runtime_error(std::string("there is no ") + name);
        }
        return found;
    }

    PickerListView* list() const { return part<PickerListView>("repositories"); }

    QLineEdit* findField() const { return part<QLineEdit>("findRepository"); }

    /// What the rows say: owners by "owner:", repositories by their names, selected ones with "+".
    std::vector<std::string> rows() const;

    /// The row of this owner or repository.
    QModelIndex row(const char* name) const;

    /// Presses and lets go of the left button at a place of the list.
    void click(const QPoint& position) const;

    const std::set<std::string>& selected() const { return model->settings().selectedRepositories; }

    std::unique_ptr<RepositoryPicker> picker;
    int doneCount = 0;
};

}  // namespace Tarnwick
