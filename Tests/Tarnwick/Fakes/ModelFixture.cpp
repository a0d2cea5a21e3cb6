#include "Fakes/ModelFixture.h"

#include "Tarnwick/Model/Settings.h"

#include <QThreadPool>

namespace TestSupport {

using namespace Tarnwick;

ModelTest::~ModelTest()
{
    // What still waits is told to stop by the model's end; it has gone once the loop has run.
    model.reset();
    provider->release();
    provider->releaseFacts();
    QThreadPool::globalInstance()->waitForDone();
    processEvents();
}

void ModelTest::start()
{
    model.reset();
    model = std::make_unique<PullRequestMenuModel>(collaborators());
}

PullRequestMenuModel::Collaborators ModelTest::collaborators() const
{
    return {
        .provider = provider,
        .defaults = defaults,
        .cache = cache(),
        .notifier = notifier,
        .loginItem = loginItem,
        .clock = clock,
        .navigation = std::make_shared<ExternalNavigation>(desktop.navigation()),
        .preload = nullptr,
        .blocked = blockedFile,
        .turns = turnsFile,
        .machine = machine};
}

void ModelTest::selectTools()
{
    SettingsStore(*defaults).setSelectedRepositories({"octo/tools"});
}

void ModelTest::refresh()
{
    runToEnd(model->refresh());
}

void ModelTest::openAndHold()
{
    provider->hold();
    model->menuOpened();
    ASSERT_TRUE(eventually([&] { return provider->waiting() == 1; }));
}

void ModelTest::releaseAndSettle()
{
    provider->release();
    ASSERT_TRUE(settle());
}

bool ModelTest::settle()
{
    return eventually([&] { return !model->isRefreshing(); });
}

std::vector<std::int64_t> ModelTest::shownNumbers() const
{
    std::vector<std::int64_t> numbers;
    for (const auto& row : model->rows()) {
        numbers.push_back(row.id().number);
    }
    return numbers;
}

PullRequestDiskCache ModelTest::cache() const
{
    return PullRequestDiskCache(
        folder.filePath(QStringLiteral("cache/pull-requests.json")).toStdString());
}

}  // namespace TestSupport
