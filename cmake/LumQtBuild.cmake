# Settings and small helpers that every target of the project shares.

# The package, its library file and its folders are named after the Qt they are for, so that both can be installed into
# one prefix. An application that moves from one to the other changes the name of the package and nothing else.
if(LUMQT_QT EQUAL 5)
    set(LUMQT_PACKAGE LumQtLib)
    set(LUMQT_QT_LEAST 5.15)
    set(LUMQT_QT_DEPRECATED 0x050F00)
elseif(LUMQT_QT EQUAL 6)
    set(LUMQT_PACKAGE LumQtLibQt6)
    set(LUMQT_QT_LEAST 6.4)
    set(LUMQT_QT_DEPRECATED 0x060400)
else()
    message(FATAL_ERROR "LUMQT_QT is 5 or 6, not '${LUMQT_QT}'")
endif()

# The installed packages say the same; a project may have one of them and this tree as a folder.
function(lumqt_refuse_other_qt)
    get_property(qt GLOBAL PROPERTY LUMQTLIB_QT)
    if(qt AND NOT qt STREQUAL LUMQT_QT)
        message(FATAL_ERROR "This project builds ${LUMQT_PACKAGE}, which is for Qt ${LUMQT_QT}, after LumQtLib for "
                            "Qt ${qt}. A project can use LumQtLib (Qt 5) or LumQtLibQt6 (Qt 6), not both.")
    endif()
    set_property(GLOBAL PROPERTY LUMQTLIB_QT "${LUMQT_QT}")
endfunction()

# Below the prefix, or Qt's own folder of plugins, which Designer looks into by itself.
set(LUMQT_PLUGIN_DIR "${CMAKE_INSTALL_LIBDIR}/${LUMQT_PACKAGE}/plugins"
    CACHE STRING "Where the plugin for Qt Designer is installed: in the folder `designer` there")

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(LUMQT_CCACHE ccache)
    if(LUMQT_CCACHE)
        # One cache for every checkout of the project, wherever it lies: paths are hashed relative to it.
        set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_CURRENT_SOURCE_DIR}"
            CCACHE_NOHASHDIR=1
            # Of a precompiled header: what is defined beside it, and when it was made, is none of its content.
            CCACHE_SLOPPINESS=pch_defines,time_macros "${LUMQT_CCACHE}")
    endif()
endif()

if(LUMQT_SANITIZE)
    add_compile_options(-fsanitize=${LUMQT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${LUMQT_SANITIZE})
endif()

# Warnings, and the defines that keep implicit or deprecated Qt out of our own code.
function(lumqt_set_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8 $<$<BOOL:${LUMQT_WARNINGS_AS_ERRORS}>:/WX>)
    else()
        target_compile_options(
            ${target}
            PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                    $<$<BOOL:${LUMQT_WARNINGS_AS_ERRORS}>:-Werror>)
    endif()
    target_compile_definitions(
        ${target} PRIVATE QT_DEPRECATED_WARNINGS QT_DISABLE_DEPRECATED_BEFORE=${LUMQT_QT_DEPRECATED}
                          QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING)
endfunction()

# Compiles the catalogues translations/<name>.ts as the target lumqt_translations. LUMQT_CATALOGUES says where to, with
# the checksums that are shipped beside them, and LUMQT_CATALOGUE_RESOURCE is a resource file with the catalogues. The
# compiler is the host's also when the library is built for another system.
function(lumqt_compile_translations)
    get_target_property(qmake Qt${LUMQT_QT}::qmake IMPORTED_LOCATION)
    get_filename_component(qt_tools "${qmake}" DIRECTORY)
    find_program(LUMQT_LRELEASE NAMES lrelease lrelease-qt${LUMQT_QT}
                 HINTS /usr/lib/qt${LUMQT_QT}/bin "${qt_tools}")
    if(NOT LUMQT_LRELEASE)
        message(FATAL_ERROR "Qt's lrelease is missing; Debian's packages qttools5-dev-tools and qt6-l10n-tools have it")
    endif()
    set(catalogues)
    set(files)
    foreach(name ${ARGN})
        set(source "${PROJECT_SOURCE_DIR}/translations/${name}.ts")
        set(compiled "${PROJECT_BINARY_DIR}/translations/${name}.qm")
        file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/translations")
        add_custom_command(
            OUTPUT "${compiled}" "${compiled}.sha256"
            COMMAND "${LUMQT_LRELEASE}" -silent "${source}" -qm "${compiled}"
            COMMAND "${CMAKE_COMMAND}" "-DCATALOGUE=${compiled}" -P "${PROJECT_SOURCE_DIR}/cmake/LumQtChecksum.cmake"
            DEPENDS "${source}" "${PROJECT_SOURCE_DIR}/cmake/LumQtChecksum.cmake"
            COMMENT "Compiling ${name}.ts"
            VERBATIM)
        list(APPEND catalogues "${compiled}" "${compiled}.sha256")
        string(APPEND files "<file alias=\"${name}.qm\">${compiled}</file>\n")
    endforeach()
    add_custom_target(lumqt_translations ALL DEPENDS ${catalogues})
    set(LUMQT_CATALOGUES "${catalogues}" PARENT_SCOPE)
    set(resource "${PROJECT_BINARY_DIR}/translations/lumqtlib_catalogues.qrc")
    file(CONFIGURE OUTPUT "${resource}" @ONLY
         CONTENT "<RCC><qresource prefix=\"/lumqtlib/translations\">\n${files}</qresource></RCC>\n")
    set(LUMQT_CATALOGUE_RESOURCE "${resource}" PARENT_SCOPE)
endfunction()

# The font table of the platform that is built for, in res/Common/.
set(LUMQT_FONT_TABLE langind.ini)
if(NOT WIN32)
    set(LUMQT_FONT_TABLE langind.generic.ini)
endif()

# Writes a resource file with all of res/, laid out as an application ships it, and says where in `result`.
function(lumqt_resource_copy result)
    set(res "${PROJECT_SOURCE_DIR}/res")
    file(GLOB_RECURSE names CONFIGURE_DEPENDS RELATIVE "${res}" "${res}/*")
    list(FILTER names EXCLUDE REGEX "^Common/langind.*ini$")
    set(files "<file alias=\"Common/langind.ini\">${res}/Common/${LUMQT_FONT_TABLE}</file>\n")
    foreach(name ${names})
        string(APPEND files "<file alias=\"${name}\">${res}/${name}</file>\n")
    endforeach()
    set(resource "${PROJECT_BINARY_DIR}/lumqtlib_res.qrc")
    file(CONFIGURE OUTPUT "${resource}" @ONLY
         CONTENT "<RCC><qresource prefix=\"/lumqtlib/res\">\n${files}</qresource></RCC>\n")
    set(${result} "${resource}" PARENT_SCOPE)
endfunction()

# Copies res/ and the catalogues to where the programs of this build look for it. The font table is the platform's own.
function(lumqt_stage_resources folder)
    add_custom_target(
        lumqt_resources ALL
        COMMAND ${CMAKE_COMMAND} -E copy_directory "${PROJECT_SOURCE_DIR}/res" "${folder}"
        COMMAND ${CMAKE_COMMAND} -E copy "${PROJECT_SOURCE_DIR}/res/Common/${LUMQT_FONT_TABLE}" "${folder}/Common/langind.ini"
        COMMAND ${CMAKE_COMMAND} -E rm -f "${folder}/Common/langind.generic.ini"
        COMMAND ${CMAKE_COMMAND} -E copy ${LUMQT_CATALOGUES} "${folder}"
        COMMENT "Staging res/")
    add_dependencies(lumqt_resources lumqt_translations)
endfunction()

# A program of this build: gallery, benchmark, test.
function(lumqt_add_program target)
    add_executable(${target} ${ARGN})
    target_link_libraries(${target} PRIVATE LumQtLib::LumQtLib)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/examples/common")
    lumqt_set_warnings(${target})
    add_dependencies(${target} lumqt_resources)
endfunction()

# Writes a resource file with the sources of the gallery's pages, which show them, and says where in `result`.
function(lumqt_page_sources result)
    file(GLOB pages CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/examples/gallery/pages/*.cpp")
    set(files "")
    foreach(page ${pages})
        get_filename_component(name "${page}" NAME)
        string(APPEND files "<file alias=\"${name}\">${page}</file>\n")
    endforeach()
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/page_sources.qrc")
    file(CONFIGURE OUTPUT "${resource}" @ONLY
         CONTENT "<RCC><qresource prefix=\"/source\">\n${files}</qresource></RCC>\n")
    set(${result} "${resource}" PARENT_SCOPE)
endfunction()
