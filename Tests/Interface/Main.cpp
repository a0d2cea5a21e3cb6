#include "Tarnwick/Interface/Panel/AccessibleParts.h"
#include "Tarnwick/Interface/Style/AppFonts.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QApplication>

#include <gmock/gmock.h>

namespace {

/// Every test begins with the same appearance.
class FreshStyle final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& /*test*/) override
    {
        Tarnwick::setApplicationStyle(1.0);
    }
};

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    Tarnwick::AppFonts::registerBundledFonts();
    Tarnwick::installAccessibleParts();
    testing::UnitTest::GetInstance()->listeners().Append(new FreshStyle);
    return RUN_ALL_TESTS();
}
