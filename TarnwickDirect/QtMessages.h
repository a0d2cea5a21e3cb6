#pragma once

namespace TarnwickDirect {

/// Suppresses the message of Qt 6.5 about a locale without UTF-8. Call before Qt is used.
void leaveOutLocaleMessage();

}  // namespace TarnwickDirect
