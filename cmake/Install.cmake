# The rules of "cmake --install".

include(GNUInstallDirs)
if(NOT TARNWICK_QT)
    return()
endif()
set(id "dev.tarnwick.Tarnwick")
set(data "${CMAKE_INSTALL_DATADIR}")
set(docs "${data}/doc/tarnwick")
set(packaging "${CMAKE_SOURCE_DIR}/packaging")
set(documents "${CMAKE_BINARY_DIR}/packaging/documents")
set(drawings "${CMAKE_SOURCE_DIR}/Tarnwick/Resources")

install(TARGETS tarnwick RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
if(TARNWICK_UPDATE_FEED)
    # Not in lib/tarnwick itself, where CPack would take it for a shared library to register.
    install(TARGETS TarnwickUpdates LIBRARY DESTINATION lib/tarnwick/modules)
endif()
install(FILES "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${TARNWICK_BUNDLE}" DESTINATION "${data}/tarnwick")

install(FILES "${documents}/${id}.metainfo.xml" DESTINATION "${data}/metainfo")
install(FILES "${CMAKE_SOURCE_DIR}/TarnwickDirect/Status/${id}.Status.xml"
    DESTINATION "${data}/dbus-1/interfaces")
install(FILES "${packaging}/${id}.search-provider.ini"
    DESTINATION "${data}/gnome-shell/search-providers")
install(FILES "${packaging}/${id}.krunner.desktop"
    DESTINATION "${data}/krunner/dbusplugins" RENAME "${id}.desktop")
install(FILES "${drawings}/tarnwick-zap-inner-light-icon.svg"
    DESTINATION "${data}/icons/hicolor/scalable/apps" RENAME "${id}.svg")
install(FILES "${drawings}/tarnwick-tray-symbolic-16.svg"
    DESTINATION "${data}/icons/hicolor/symbolic/apps" RENAME "${id}-symbolic.svg")

install(FILES "${packaging}/completions/tarnwick.bash"
    DESTINATION "${data}/bash-completion/completions" RENAME tarnwick)
install(FILES "${packaging}/completions/_tarnwick" DESTINATION "${data}/zsh/vendor-completions")
install(FILES "${packaging}/completions/tarnwick.fish" DESTINATION "${data}/fish/vendor_completions.d")

install(FILES "${documents}/tarnwick.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES README.md "${documents}/changelog.gz" "${documents}/changelog.Debian.gz"
    "${documents}/copyright" DESTINATION "${docs}")
install(DIRECTORY docs/ DESTINATION "${docs}" FILES_MATCHING PATTERN "*.md" PATTERN pictures EXCLUDE)

configure_file(cmake/InstallEntries.cmake.in "${CMAKE_BINARY_DIR}/packaging/InstallEntries.cmake" @ONLY)
install(SCRIPT "${CMAKE_BINARY_DIR}/packaging/InstallEntries.cmake")
