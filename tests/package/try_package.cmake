# Run by CTest, see CMakeLists.txt beside it, and by scripts/package.sh, which gives a PREFIX that is installed already.
function(run title)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${title} failed (${status}):\n${output}")
    endif()
    message(STATUS "${title}: done")
    set(output "${output}" PARENT_SCOPE)
endfunction()

if(NOT PREFIX)
    file(REMOVE_RECURSE "${WORK}")
    set(PREFIX "${WORK}/prefix")
    run("Installing" "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}" --config "${CONFIG}")
endif()

# The library for the other Qt may be installed there, too, which OTHER tells: each file lies below, or is named after,
# the package.
if(NOT OTHER)
    file(GLOB_RECURSE files RELATIVE "${PREFIX}" "${PREFIX}/*")
    foreach(file ${files})
        string(REGEX MATCH "LumQtLib(Qt6)?" owner "${file}")
        if(NOT owner STREQUAL PACKAGE)
            message(FATAL_ERROR "${file} lies where the library for the other Qt may have a file")
        endif()
    endforeach()
endif()

set(options "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DCMAKE_CXX_COMPILER=${CXX}"
    "-DLUMQT_PACKAGE=${PACKAGE}")
if(TOOLCHAIN)
    # The installed package lies outside of the toolchain's root.
    list(APPEND options "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}" "-DLUMQT_QT_WINDOWS=${QT}"
         "-D${PACKAGE}_DIR=${PREFIX}/lib/cmake/${PACKAGE}")
endif()
if(SANITIZE)
    list(APPEND options "-DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZE}")
endif()
run("Configuring the consumer" "${CMAKE_COMMAND}" -G "${GENERATOR}" -S "${SOURCE}" -B "${WORK}/consumer" ${options})
run("Building the consumer" "${CMAKE_COMMAND}" --build "${WORK}/consumer")
run("Configuring the consumer that ships res/" "${CMAKE_COMMAND}" -G "${GENERATOR}" -S "${CMAKE_CURRENT_LIST_DIR}/staged"
    -B "${WORK}/staged" ${options} "-DLUMQT_SOURCE=${SOURCE}")
run("Building it" "${CMAKE_COMMAND}" --build "${WORK}/staged")

# The package for the other Qt need not be installed for this: its config file refuses before it looks for anything.
set(LUMQT_QT 6)
set(LUMQT_PACKAGE LumQtLibQt6)
if(PACKAGE STREQUAL LUMQT_PACKAGE)
    set(LUMQT_QT 5)
    set(LUMQT_PACKAGE LumQtLib)
endif()
set(other "${PREFIX}/lib/cmake/${LUMQT_PACKAGE}")
if(NOT OTHER)
    set(other "${WORK}/other")
    configure_file("${CMAKE_CURRENT_LIST_DIR}/../../cmake/LumQtLibConfig.cmake.in"
                   "${other}/${LUMQT_PACKAGE}Config.cmake" @ONLY)
endif()
execute_process(
    COMMAND "${CMAKE_COMMAND}" -G "${GENERATOR}" -S "${CMAKE_CURRENT_LIST_DIR}/both" -B "${WORK}/both" ${options}
            "-DLUMQT_OTHER=${LUMQT_PACKAGE}" "-D${LUMQT_PACKAGE}_DIR=${other}"
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
string(REGEX REPLACE "[ \n]+" " " output "${output}")
if(status EQUAL 0 OR NOT output MATCHES "can use LumQtLib \\(Qt 5\\) or LumQtLibQt6 \\(Qt 6\\), not both")
    message(FATAL_ERROR "A project that asks for both was not refused (${status}):\n${output}")
endif()

set(folder "${WORK}/staged/lqminimal")
if(NOT EXISTS "${folder}/../res/title_logo.png" OR NOT EXISTS "${folder}/../res/Common/langind.ini"
   OR NOT EXISTS "${folder}/../res/lumqtlib_en.qm" OR NOT EXISTS "${folder}/../res/lumqtlib_en.qm.sha256")
    message(FATAL_ERROR "The resources were not staged beside ${folder}")
endif()
set(ENV{LUMQT_DLL_PATH} "${PREFIX}/bin")
# One lives on what the library carries, the other on the folder beside it.
foreach(folder "${WORK}/consumer" "${WORK}/staged/lqminimal")
    file(GLOB program "${folder}/minimal" "${folder}/minimal.exe")
    execute_process(COMMAND ${RUN} "${program}" --check WORKING_DIRECTORY "${folder}" RESULT_VARIABLE status
                    OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "The consumer failed (${status}):\n${output}")
    endif()
endforeach()
message(STATUS "Totals: 1 passed, 0 failed, 0 skipped")
