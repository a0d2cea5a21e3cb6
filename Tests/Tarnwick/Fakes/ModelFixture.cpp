#include "Fakes/ModelFixture.h"

#include "Support/Mapped.h"
#include "Tarnwick/Model/Settings.h"

#include <QThreadPool>

namespace TestSupport {

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

void ModelTest::startAndRefresh()
{
    start();
    refresh();
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

void ModelTest::pollAndHold()
{
    provider->hold();
    clock->advance(300s);
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

bool ModelTest::refreshed(std::size_t times)
{
    return eventually(
        [&] { return provider->requests().size() == times && !model->isRefreshing(); });
}

std::vector<std::int64_t> ModelTest::shownNumbers() const
{
    return mapped(model->rows(), [](const auto& row) { return row.id().number; });
}

PullRequestDiskCache ModelTest::cache() const
{
    return PullRequestDiskCache(
        folder.filePath(QStringLiteral("cache/pull-requests.json")).toStdString());
}

}  // namespace TestSupport
