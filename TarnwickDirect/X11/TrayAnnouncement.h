#pragma once

#include <QAbstractNativeEventFilter>

#include <functional>
#include <optional>

namespace TarnwickDirect {

/// Detects when a program becomes the X11 tray of the screen. Main thread only.
class TrayAnnouncement final : public QAbstractNativeEventFilter {
public:
    explicit TrayAnnouncement(std::function<void()> announced);
    ~TrayAnnouncement() override;

    TrayAnnouncement(const TrayAnnouncement&) = delete;
    TrayAnnouncement& operator=(const TrayAnnouncement&) = delete;

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    std::function<void()> _announced;
    std::optional<quint32> _manager;
    std::optional<quint32> _selection;
};

}  // namespace TarnwickDirect
