#include "Picker/PickerFixture.h"
#include "Support/Pictures.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QLabel>

#include <cstdlib>

namespace Tarnwick {
namespace {

class PickerPictureTests : public PickerTest {
protected:
    Appearance& appearance = setApplicationStyle(1.0);

    void openEveryday()
    {
        appearance.setPreferences({.reducedMotion = true, .higherContrast = false});
        std::vector<PullRequestKit::RepositorySummary> repositories = someRepositories();
        for (int number = 1; number < 20; ++number) {
            repositories.push_back(
                repositoryOf("northmere/tidewatch-" + std::to_string(number), "public", "C"));
        }
        open(
            repositories,
            {"fenland/capstan",
             "fenland/harbour-9",
             "fenland/harbour-10",
             "northmere/beacon",
             "northmere/quay"});
        model->setProjectDirectory("/home/mira/projects");
        ASSERT_TRUE(TestSupport::eventually([this] {
            return part<QLabel>("projectDirectoryNote")->text()
                   == QStringLiteral("The folder /home/mira/projects does not exist.");
        }));
    }

    void focus(const char* name)
    {
        list()->setFocus(Qt::TabFocusReason);
        list()->selectionModel()->setCurrentIndex(row(name), QItemSelectionModel::ClearAndSelect);
    }
};

TEST_F(PickerPictureTests, everyday)
{
    openEveryday();
    focus("harbour-10");
    expectPicture(pictureOf(*picker, 1), "picker-light");
}

TEST_F(PickerPictureTests, everydayInTheDarkAt150)
{
    appearance.setDark(true);
    openEveryday();
    focus("harbour-10");
    expectPicture(pictureOf(*picker, 1.5), "picker-dark-150");
}

}  // namespace
}  // namespace Tarnwick
