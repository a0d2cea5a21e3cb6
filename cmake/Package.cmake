# What "cpack" makes: a Debian package. tools/package runs it.

# While CHANGELOG.md has no section for the version, the package is one of its development and sorts
# before it.
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
# The installation learns the folder that the package goes to, not the one it is put together in.
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
# In this order: worktrees, the launcher's actions, links, a native window under Wayland, the bus.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "git, libglib2.0-bin, xdg-utils, qt6-wayland, default-dbus-session-bus | dbus-session-bus")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "GitHub pull requests in the tray and in the terminal")
set(CPACK_PACKAGE_DESCRIPTION_FILE "${CMAKE_SOURCE_DIR}/packaging/description.txt")
include(CPack)
