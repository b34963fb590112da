# What `cmake --install` lays out, and the package that find_package(LumQtLib) finds.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/LumQtLib")
set(LUMQT_INSTALL_RES_DIR "${CMAKE_INSTALL_DATADIR}/LumQtLib/res")

install(
    TARGETS LumQtLib
    EXPORT LumQtLibTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/LumQtLib")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/" "${PROJECT_BINARY_DIR}/include/"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/LumQtLib" FILES_MATCHING PATTERN "*.h")

# An application ships the font table of its platform under one name.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/res/" DESTINATION "${LUMQT_INSTALL_RES_DIR}"
        PATTERN "langind*.ini" EXCLUDE)
install(FILES ${LUMQT_CATALOGUES} DESTINATION "${LUMQT_INSTALL_RES_DIR}")
if(WIN32)
    install(FILES "${PROJECT_SOURCE_DIR}/res/Common/langind.ini" DESTINATION "${LUMQT_INSTALL_RES_DIR}/Common")
else()
    install(FILES "${PROJECT_SOURCE_DIR}/res/Common/langind.generic.ini"
            DESTINATION "${LUMQT_INSTALL_RES_DIR}/Common" RENAME langind.ini)
endif()

install(EXPORT LumQtLibTargets NAMESPACE LumQtLib:: DESTINATION "${package_dir}")
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/LumQtLibConfig.cmake.in" "${PROJECT_BINARY_DIR}/LumQtLibConfig.cmake"
    INSTALL_DESTINATION "${package_dir}" PATH_VARS LUMQT_INSTALL_RES_DIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/LumQtLibConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/LumQtLibConfig.cmake" "${PROJECT_BINARY_DIR}/LumQtLibConfigVersion.cmake"
        DESTINATION "${package_dir}")
