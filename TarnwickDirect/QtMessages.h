#pragma once

namespace TarnwickDirect {

/// Leaves one of Qt's messages out: from 6.5 on it writes at every start in a locale without UTF-8
/// that it uses UTF-8 all the same, and so does everything here. To be called before Qt is used.
void leaveOutLocaleMessage();

}  // namespace TarnwickDirect
