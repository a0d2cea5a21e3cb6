# The Debian package that "cpack" builds; see tools/package.

# Without a section in CHANGELOG.md, the version is in development and sorts before the release.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/CHANGELOG.md")
string(REPLACE "." "\\." versionPattern "${PROJECT_VERSION}")
file(STRINGS "${CMAKE_SOURCE_DIR}/CHANGELOG.md" section REGEX "^## \\[${versionPattern}\\]")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
if(NOT section)
    string(APPEND CPACK_PACKAGE_VERSION "~dev")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarnwick)
set(CPACK_PACKAGE_VENDOR "The Tarnwick authors")
set(CPACK_PACKAGE_CONTACT "${TARNWICK_MAINTAINER}")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_SOURCE_DIR}/build/package")
set(CPACK_STRIP_FILES ON)
# Sets the install prefix to the package's target folder instead of the staging folder.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX "/usr")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION vcs)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${TARNWICK_WEB_SITE}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "gh (>= 2.21)")
# In order, for: worktrees, the launcher's actions, links, native Wayland windows, the bus.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "git, libglib2.0-bin, xdg-utils, qt6-wayland, default-dbus-session-bus | dbus-session-bus")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "GitHub pull requests in the tray and in the terminal")
set(CPACK_PACKAGE_DESCRIPTION_FILE "${CMAKE_SOURCE_DIR}/packaging/description.txt")
include(CPack)
