#include "Tarnwick/Desktop/NotificationPresentationDelegate.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <algorithm>
#include <optional>
#include <utility>

namespace Tarnwick {
namespace {

bool isWebAddress(const PullRequestKit::Url& url)
{
    std::string scheme = url.text.substr(0, url.text.find(':'));
    std::ranges::transform(scheme, scheme.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return scheme == "https" || scheme == "http";
}

std::optional<PullRequestKit::Url> addressIn(const NotificationResponse& response)
{
    const auto text = response.userInfo.find(pullRequestUrlKey);
    if (text == response.userInfo.end()) {
        return std::nullopt;
    }
    auto url = PullRequestKit::parseUrl(text->second);
    return url && isWebAddress(*url) ? url : std::nullopt;
}

}  // namespace

NotificationPresentationDelegate::NotificationPresentationDelegate(
    std::shared_ptr<const ExternalNavigation> navigation)
    : _navigation(std::move(navigation))
{}

void NotificationPresentationDelegate::setOpened(
    std::function<void(const PullRequestKit::Url&)> opened)
{
    _opened = std::move(opened);
}

void NotificationPresentationDelegate::didReceive(const NotificationResponse& response) const
{
    if (response.actionIdentifier != defaultActionIdentifier) {
        return;
    }
    if (const auto url = addressIn(response)) {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [navigation = _navigation,
             opened = _opened,
             url = *url,
             token = response.activationToken] {
                if (opened) {
                    opened(url);
                }
                navigation->open(url, token);
            },
            Qt::QueuedConnection);
    }
}

}  // namespace Tarnwick
