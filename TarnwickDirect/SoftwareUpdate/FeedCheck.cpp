#include "TarnwickDirect/SoftwareUpdate/FeedCheck.h"

#include "Tarnwick/Async/Worker.h"
#include "TarnwickDirect/SoftwareUpdate/AppcastReader.h"

#include <utility>

namespace TarnwickDirect {
namespace {

/// What a feed gives: an update, none, or the message of what is wrong with the feed.
using Finding = std::variant<UpdateOffer, NoUpdate, QString>;

Finding findingOf(const QByteArray& feed, const UpdateNeeds& needs)
{
    try {
        return std::visit(
            [](auto&& choice) -> Finding { return std::forward<decltype(choice)>(choice); },
            chooseUpdate(readAppcast(feed), needs));
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

FetchRequest requestFor(const FeedCheck::Settings& settings)
{
    return {
        .url = settings.feed,
        .subject = QStringLiteral("The update feed"),
        .byteLimit = std::uint64_t(appcastSizeLimit),
        .silenceLimit = settings.timeLimit,
        .timeLimit = settings.timeLimit,
        .authorities = settings.authorities};
}

}  // namespace

FeedCheck::FeedCheck(HttpsNetwork& network, Settings settings)
    : _settings(std::move(settings))
    , _fetch(network, requestFor(_settings))
{
    connect(
        &_fetch, &HttpsFetch::received, this, [this](const QByteArray& bytes) { _feed += bytes; });
    connect(&_fetch, &HttpsFetch::failed, this, &FeedCheck::failed);
    connect(&_fetch, &HttpsFetch::finished, this, [this] {
        _choice.start([this](std::stop_token stopToken) { return choose(stopToken); });
    });
}

QCoro::Task<> FeedCheck::choose(std::stop_token stopToken)
{
    const auto work = [feed = _feed, needs = _settings.needs] { return findingOf(feed, needs); };
    auto choosing = Tarnwick::onWorker(work);
    const Finding finding = co_await choosing;
    if (stopToken.stop_requested()) {
        co_return;
    }
    if (const auto* const offer = std::get_if<UpdateOffer>(&finding)) {
        Q_EMIT found(*offer);
    } else if (const auto* const reason = std::get_if<NoUpdate>(&finding)) {
        Q_EMIT foundNothing(*reason);
    } else {
        Q_EMIT failed(std::get<QString>(finding));
    }
}

}  // namespace TarnwickDirect
