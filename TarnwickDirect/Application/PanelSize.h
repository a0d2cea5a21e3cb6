#pragma once

#include "Tarnwick/Persistence/DefaultsStore.h"

#include <QSize>

namespace TarnwickDirect {

/// The panel's last size in logical pixels, stored under `panel.size` as text such as "440x620".
namespace PanelSize {

/// The stored size, or the default size at this text scale if missing or invalid.
QSize read(const Tarnwick::DefaultsStore& store, double textScale);

void write(Tarnwick::DefaultsStore& store, const QSize& size);

}  // namespace PanelSize

}  // namespace TarnwickDirect
