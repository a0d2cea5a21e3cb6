# A module sees its own headers and those of the modules it links, and no others: each has an include
# directory in the build tree with a link to each of its headers.

# Lists the files of a FOLDER that match a PATTERN, and reconfigures when files are added or removed. It
# depends on the folder's time stamp: with CONFIGURE_DEPENDS every build would list the folder, and "ninja -n"
# could not tell that there is nothing to do.
function(tarnwick_glob variable folder pattern)
    file(GLOB found "${folder}/${pattern}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${folder}")
    set(${variable} "${found}" PARENT_SCOPE)
endfunction()

# Adds all files of the ROOMS, which are folders, except for those in EXCEPT.
function(tarnwick_rooms variable pattern)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "ROOMS;EXCEPT")
    set(files ${${variable}})
    foreach(room IN LISTS arg_ROOMS)
        tarnwick_glob(found "${CMAKE_CURRENT_SOURCE_DIR}/${room}" "${pattern}")
        foreach(file IN LISTS found)
            cmake_path(NORMAL_PATH file)
            cmake_path(RELATIVE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
            list(APPEND files "${file}")
        endforeach()
    endforeach()
    list(REMOVE_ITEM files ${arg_EXCEPT})
    set(${variable} ${files} PARENT_SCOPE)
endfunction()

# HEADERS lists headers without a source of the same name. FOLDER is needed for a second library of a folder.
function(tarnwick_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FOLDER" "ROOMS;EXCEPT;SOURCES;HEADERS;PUBLIC;PRIVATE;PRECOMPILE")
    if(NOT arg_FOLDER)
        set(arg_FOLDER "${name}")
    endif()
    tarnwick_rooms(arg_SOURCES "*.cpp" ROOMS ${arg_ROOMS} EXCEPT ${arg_EXCEPT})
    tarnwick_rooms(arg_HEADERS "*.h" ROOMS ${arg_ROOMS} EXCEPT ${arg_EXCEPT})
    set(headers ${arg_HEADERS})
    foreach(source IN LISTS arg_SOURCES)
        string(REGEX REPLACE "\\.cpp$" ".h" header "${source}")
        if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${header}")
            list(APPEND headers "${header}")
        endif()
    endforeach()
    list(REMOVE_DUPLICATES headers)
    set(root "${CMAKE_BINARY_DIR}/include/${name}")
    tarnwick_link_headers("${root}/${arg_FOLDER}" ${headers})

    add_library(${name} STATIC ${arg_SOURCES} ${headers})
    target_include_directories(${name} PUBLIC "${root}")
    target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE TarnwickSettings ${arg_PRIVATE})
    tarnwick_precompile(${name} ${arg_PRECOMPILE})

    if(TARNWICK_HEADER_CHECK AND headers)
        tarnwick_check_headers(${name} ${arg_FOLDER} ${headers})
    endif()
endfunction()

# Recreates the FOLDER with links to these headers only.
function(tarnwick_link_headers folder)
    file(REMOVE_RECURSE "${folder}")
    foreach(header IN LISTS ARGN)
        cmake_path(GET header PARENT_PATH room)
        file(MAKE_DIRECTORY "${folder}/${room}")
        file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}/${header}" "${folder}/${header}" SYMBOLIC)
    endforeach()
endfunction()

function(tarnwick_precompile target)
    if(TARNWICK_PRECOMPILE AND ARGN)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# Compiles each header on its own, which fails if it depends on earlier includes.
function(tarnwick_check_headers name folder)
    set(sources)
    foreach(header IN LISTS ARGN)
        string(MAKE_C_IDENTIFIER "${header}" identifier)
        set(source "${CMAKE_CURRENT_BINARY_DIR}/${name}Headers/${identifier}.cpp")
        file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"${folder}/${header}\"\n")
        list(APPEND sources "${source}")
    endforeach()
    add_library(${name}Headers OBJECT ${sources})
    target_link_libraries(${name}Headers PRIVATE ${name} TarnwickSettings)
    target_compile_options(${name}Headers PRIVATE -fsyntax-only)
endfunction()

# Adds a test program. CTest runs its tests one by one, labeled with the program's name. PROPERTIES are
# further properties of each test.
function(tarnwick_tests name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ROOMS;EXCEPT;SOURCES;LIBRARIES;PRECOMPILE;PROPERTIES")
    tarnwick_rooms(arg_SOURCES "*.cpp" ROOMS ${arg_ROOMS} EXCEPT ${arg_EXCEPT})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE TestSupport ${arg_LIBRARIES} TarnwickSettings)
    tarnwick_precompile(${name} ${arg_PRECOMPILE})
    gtest_discover_tests(${name}
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 60 LABELS ${name} ${arg_PROPERTIES})
endfunction()

# Runs a whole test program again with work that is done before its caller continues. Requires the library
# WorkerTiming.
function(tarnwick_early_workers name)
    add_test(NAME ${name}.earlyWorkers COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name}.earlyWorkers PROPERTIES
        TIMEOUT 300 LABELS ${name} ENVIRONMENT "TARNWICK_TEST_WORKERS=early;QT_QPA_PLATFORM=offscreen")
endfunction()

# Adds a libFuzzer target as a test: runs the inputs in Corpora/ and then fuzzes for a few seconds. New inputs
# stay in the build tree.
function(tarnwick_fuzzer name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} TarnwickSettings)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)

    set(corpus "${CMAKE_CURRENT_BINARY_DIR}/corpus/${name}")
    file(MAKE_DIRECTORY "${corpus}")
    add_test(NAME ${name} COMMAND ${name}
        -max_total_time=5 -timeout=5 -rss_limit_mb=512
        "-artifact_prefix=${CMAKE_CURRENT_BINARY_DIR}/${name}-"
        "${corpus}" "${CMAKE_CURRENT_SOURCE_DIR}/Corpora/${name}")
    set_tests_properties(${name} PROPERTIES TIMEOUT 60 LABELS fuzz)
endfunction()
