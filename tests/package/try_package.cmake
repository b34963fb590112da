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

set(options "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DCMAKE_CXX_COMPILER=${CXX}")
if(TOOLCHAIN)
    # The installed package lies outside of the toolchain's root.
    list(APPEND options "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}" "-DLUMQT_QT_WINDOWS=${QT}"
         "-DLumQtLib_DIR=${PREFIX}/lib/cmake/LumQtLib")
endif()
if(SANITIZE)
    list(APPEND options "-DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZE}")
endif()
run("Configuring the consumer" "${CMAKE_COMMAND}" -G "${GENERATOR}" -S "${SOURCE}" -B "${WORK}/consumer" ${options})
run("Building the consumer" "${CMAKE_COMMAND}" --build "${WORK}/consumer")

file(GLOB_RECURSE programs "${WORK}/consumer/*/minimal" "${WORK}/consumer/*/minimal.exe")
list(GET programs 0 program)
get_filename_component(folder "${program}" DIRECTORY)
if(NOT EXISTS "${folder}/../res/title_logo.png" OR NOT EXISTS "${folder}/../res/Common/langind.ini"
   OR NOT EXISTS "${folder}/../res/lumqtlib_en.qm" OR NOT EXISTS "${folder}/../res/lumqtlib_en.qm.sha256")
    message(FATAL_ERROR "The resources were not staged beside ${folder}")
endif()
set(ENV{LUMQT_DLL_PATH} "${PREFIX}/bin")
execute_process(COMMAND ${RUN} "${program}" --check WORKING_DIRECTORY "${folder}" RESULT_VARIABLE status
                OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "The consumer failed (${status}):\n${output}")
endif()
message(STATUS "Totals: 1 passed, 0 failed, 0 skipped")
