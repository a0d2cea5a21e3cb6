# Build options and the settings that all targets share.

option(TARNWICK_QT "Build the floors that need Qt" ON)
option(TARNWICK_SAMPLE "Build the sample GitHub" ON)
option(TARNWICK_TESTS "Build the tests" ON)
option(TARNWICK_BENCHMARKS "Build the benchmarks" OFF)
option(TARNWICK_FUZZERS "Build the libFuzzer targets (Clang only)" OFF)
option(TARNWICK_HEADER_CHECK "Compile every header on its own" OFF)
option(TARNWICK_PRECOMPILE "Use precompiled headers" ON)
set(TARNWICK_WEB_SITE "https://tarnwick.dev" CACHE STRING "The product's web site")
set(TARNWICK_UPDATE_FEED "" CACHE STRING "The HTTPS address of the update feed; without it the program has no updater")
set(TARNWICK_UPDATE_KEY "" CACHE STRING "The Ed25519 public key that updates are signed for, in Base64")
set(TARNWICK_SANITIZERS "" CACHE STRING "Sanitizers for every target, such as address,undefined")

# If only one of them is set, or one is invalid, the program would silently have no updater.
set(feedForm "^https://[^/\"\\ ]+(/[^\"\\ ]*)?$")
set(keyForm "^[A-Za-z0-9+/]+=$")
string(LENGTH "${TARNWICK_UPDATE_KEY}" keyLength)
if(TARNWICK_UPDATE_FEED OR TARNWICK_UPDATE_KEY)
    if(NOT TARNWICK_UPDATE_FEED MATCHES "${feedForm}" OR NOT TARNWICK_UPDATE_KEY MATCHES "${keyForm}"
        OR NOT keyLength EQUAL 44)
        message(FATAL_ERROR "TARNWICK_UPDATE_FEED has to be an HTTPS address and TARNWICK_UPDATE_KEY "
            "the Base64 text of 32 bytes, or both have to be empty.")
    endif()
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

find_program(TARNWICK_CCACHE ccache)
if(TARNWICK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # ccache caches precompiled headers only if time stamps and macros are ignored.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime"
        "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" "CCACHE_NOHASHDIR=1" "${TARNWICK_CCACHE}")
endif()

add_library(TarnwickSettings INTERFACE)
target_compile_options(TarnwickSettings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-qual -Wformat=2 -fno-strict-overflow)
if(TARNWICK_PRECOMPILE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(TarnwickSettings INTERFACE -fpch-preprocess)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # libstdc++ 12 uses its own deprecated get_temporary_buffer in std::stable_sort. GCC builds keep the
    # warning.
    target_compile_options(TarnwickSettings INTERFACE -Wno-deprecated-declarations)
endif()
if(TARNWICK_SANITIZERS)
    target_compile_options(TarnwickSettings INTERFACE
        -fsanitize=${TARNWICK_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(TarnwickSettings INTERFACE -fsanitize=${TARNWICK_SANITIZERS})
endif()
if(TARNWICK_FUZZERS)
    target_compile_options(TarnwickSettings INTERFACE -fsanitize=fuzzer-no-link)
endif()
