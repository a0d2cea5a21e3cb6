# What "cmake --install" puts where.

include(GNUInstallDirs)
if(TARGET tarnwick)
    install(TARGETS tarnwick RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
install(FILES README.md CHANGELOG.md LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY docs/ DESTINATION "${CMAKE_INSTALL_DOCDIR}" FILES_MATCHING PATTERN "*.md")
