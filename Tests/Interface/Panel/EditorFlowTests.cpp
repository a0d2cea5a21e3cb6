#include "Tarnwick/Interface/Panel/EditorFlow.h"

#include "Fakes/ModelFixture.h"

namespace Tarnwick {
namespace {

class EditorFlowTests : public TestSupport::ModelTest {
protected:
    EditorFlowTests()
    {
        start();
        flow = std::make_unique<EditorFlow>(*model);
    }

    bool ended() const { return !flow->editorProgress().has_value(); }

    std::unique_ptr<EditorFlow> flow;
};

TEST_F(EditorFlowTests, saysWhatItBeginsWith)
{
    std::vector<QString> shown;
    QObject::connect(flow.get(), &EditorFlow::editorProgressChanged, flow.get(), [&] {
        shown.push_back(flow->editorProgress().value_or(QStringLiteral("(done)")));
    });
    flow->open(TestSupport::makePullRequest(1));
    ASSERT_TRUE(TestSupport::eventually([this] { return ended(); }));
    EXPECT_EQ(shown.front(), QStringLiteral("Preparing repository…"));
    EXPECT_EQ(shown.back(), QStringLiteral("(done)"));
}

TEST_F(EditorFlowTests, keepsTheErrorUntilItIsDismissed)
{
    model->setProjectDirectory("/nowhere/at/all");
    flow->open(TestSupport::makePullRequest(1));
    ASSERT_TRUE(TestSupport::eventually([this] { return ended(); }));
    ASSERT_TRUE(flow->externalActionError());
    EXPECT_EQ(
        *flow->externalActionError(),
        QStringLiteral("The repository directory does not exist at /nowhere/at/all/tools. Open "
                       "Menu > Repositories and set Project Directory first."));
    EXPECT_EQ(
        flow->errorReport(),
        QStringLiteral("Unable to Open Editor\n\n"
                       "The repository directory does not exist at /nowhere/at/all/tools. Open "
                       "Menu > Repositories and set Project Directory first."));
    flow->dismissError();
    EXPECT_FALSE(flow->externalActionError());
}

}  // namespace
}  // namespace Tarnwick
