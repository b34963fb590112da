# Settings and small helpers that every target of the project shares.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(LUMQT_CCACHE ccache)
    if(LUMQT_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${LUMQT_CCACHE}")
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
    target_compile_definitions(${target} PRIVATE QT_DEPRECATED_WARNINGS QT_NO_CAST_TO_ASCII
                                                 QT_NO_URL_CAST_FROM_STRING)
endfunction()

# Copies res/ to where the programs of this build look for it. The font table is the platform's own.
function(lumqt_stage_resources folder)
    set(table langind.ini)
    if(NOT WIN32)
        set(table langind.generic.ini)
    endif()
    add_custom_target(
        lumqt_resources ALL
        COMMAND ${CMAKE_COMMAND} -E copy_directory "${PROJECT_SOURCE_DIR}/res" "${folder}"
        COMMAND ${CMAKE_COMMAND} -E copy "${PROJECT_SOURCE_DIR}/res/Common/${table}" "${folder}/Common/langind.ini"
        COMMAND ${CMAKE_COMMAND} -E rm -f "${folder}/Common/langind.generic.ini"
        COMMENT "Staging res/")
endfunction()

# A program of this build: gallery, benchmark, test.
function(lumqt_add_program target)
    add_executable(${target} ${ARGN})
    target_link_libraries(${target} PRIVATE LumQtLib::LumQtLib)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/examples/common")
    lumqt_set_warnings(${target})
    add_dependencies(${target} lumqt_resources)
endfunction()
