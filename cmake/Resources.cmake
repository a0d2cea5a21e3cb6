# The resource bundle: a binary file beside the program. It is replaceable, and mapped instead of copied. It
# contains the program's drawings and, if available, the fonts and icons from tools/stage-assets.

set(TARNWICK_BUNDLE "Tarnwick_Tarnwick.bundle")
set(TARNWICK_ASSETS "${CMAKE_SOURCE_DIR}/build/assets")

execute_process(
    COMMAND "${CMAKE_SOURCE_DIR}/tools/stage-assets"
    RESULT_VARIABLE stagingFailed
    ERROR_VARIABLE stagingErrors
    OUTPUT_QUIET)
if(stagingFailed)
    string(STRIP "${stagingErrors}" stagingErrors)
    message(NOTICE "${stagingErrors}\n"
        "The program is built without Geist and Octicons: it uses the desktop's font, and a "
        "placeholder stands for those icons. Configure again once they can be fetched.")
endif()
# Staging replaces this folder, which triggers a reconfiguration.
file(MAKE_DIRECTORY "${TARNWICK_ASSETS}")

function(tarnwick_resource_bundle target)
    tarnwick_glob(drawings "${CMAKE_CURRENT_SOURCE_DIR}/Resources" "*.svg")
    tarnwick_glob(icons "${TARNWICK_ASSETS}" "*.svg")
    file(GLOB fonts "${TARNWICK_ASSETS}/Fonts/*.ttf")
    set(entries "")
    foreach(file IN LISTS drawings icons)
        get_filename_component(name "${file}" NAME)
        string(APPEND entries "<file alias=\"${name}\">${file}</file>\n")
    endforeach()
    foreach(file IN LISTS fonts)
        get_filename_component(name "${file}" NAME)
        string(APPEND entries "<file alias=\"Fonts/${name}\">${file}</file>\n")
    endforeach()
    set(list "${CMAKE_CURRENT_BINARY_DIR}/bundle.qrc")
    file(CONFIGURE OUTPUT "${list}" CONTENT
        "<RCC><qresource prefix=\"/tarnwick\">\n${entries}</qresource></RCC>\n")
    set(bundle "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${TARNWICK_BUNDLE}")
    add_custom_command(OUTPUT "${bundle}"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
        COMMAND Qt6::rcc --binary --no-compress --output "${bundle}" "${list}"
        DEPENDS "${list}" ${drawings} ${icons} ${fonts}
        VERBATIM)
    add_custom_target(${target} ALL DEPENDS "${bundle}")
endfunction()
