#pragma once

namespace TarnwickDirect {

/// Suppresses the message of Qt 6.5 and later that it uses UTF-8 despite the locale. Call before Qt
/// is used.
void leaveOutLocaleMessage();

}  // namespace TarnwickDirect
