#pragma once

#include "Tarnwick/Persistence/DefaultsStore.h"

#include <QSize>

namespace TarnwickDirect {

/// The panel's size in logical pixels, as the user left it. Stored under `panel.size` as text such
/// as "440x620".
namespace PanelSize {

/// What is stored, or, where that is nothing or makes no sense, the first size at this text scale.
QSize read(const Tarnwick::DefaultsStore& store, double textScale);

void write(Tarnwick::DefaultsStore& store, const QSize& size);

}  // namespace PanelSize

}  // namespace TarnwickDirect
