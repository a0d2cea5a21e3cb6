# The libraries that the modules use.

find_package(Boost 1.81 CONFIG REQUIRED COMPONENTS json)
find_package(ICU 70 REQUIRED COMPONENTS i18n uc)
find_package(Threads REQUIRED)
if(TARNWICK_QT)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui Network Svg Widgets)
    find_package(QCoro6 0.8 REQUIRED COMPONENTS Core)
    find_package(Fontconfig REQUIRED)

    # For X11 features that Qt lacks.
    find_path(XCB_INCLUDE_DIR xcb/xcb.h REQUIRED)
    find_library(XCB_LIBRARY xcb REQUIRED)
    mark_as_advanced(XCB_INCLUDE_DIR XCB_LIBRARY)
    add_library(XCB::XCB UNKNOWN IMPORTED)
    set_target_properties(XCB::XCB PROPERTIES
        IMPORTED_LOCATION "${XCB_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${XCB_INCLUDE_DIR}")
endif()
if(TARNWICK_QT OR TARNWICK_FUZZERS)
    # For the signatures of updates.
    find_path(SODIUM_INCLUDE_DIR sodium.h REQUIRED)
    find_library(SODIUM_LIBRARY sodium REQUIRED)
    mark_as_advanced(SODIUM_INCLUDE_DIR SODIUM_LIBRARY)
    add_library(sodium::sodium UNKNOWN IMPORTED)
    set_target_properties(sodium::sodium PROPERTIES
        IMPORTED_LOCATION "${SODIUM_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${SODIUM_INCLUDE_DIR}")
endif()
if(TARNWICK_FUZZERS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui)
endif()
if(TARNWICK_TESTS)
    find_package(GTest REQUIRED)
    find_package(rapidcheck REQUIRED)
    if(TARNWICK_QT)
        find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
    endif()
endif()
if(TARNWICK_BENCHMARKS)
    find_package(benchmark REQUIRED)
endif()
