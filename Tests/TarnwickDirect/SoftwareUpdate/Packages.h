#pragma once

#include <QByteArray>

namespace TestSupport {

/// The bytes of a Debian package that dpkg-deb has built, with a file of 300,000 bytes in it. The
/// same ones when asked again.
const QByteArray& debianPackage(const char* version, const char* name = "tarnwick");

}  // namespace TestSupport
