# What `cmake --install` lays out, and the package that find_package() finds: LumQtLib with Qt 5, LumQtLibQt6 with Qt 6.
# No file of the one lies where the other has one.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/${LUMQT_PACKAGE}")
set(LUMQT_INSTALL_RES_DIR "${CMAKE_INSTALL_DATADIR}/${LUMQT_PACKAGE}/res")
# Has the plugin for Designer, where that is built; see LUMQT_PLUGIN_DIR.
set(LUMQT_INSTALL_PLUGIN_DIR "${LUMQT_PLUGIN_DIR}")

install(
    TARGETS LumQtLib
    EXPORT ${LUMQT_PACKAGE}Targets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${LUMQT_PACKAGE}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/" "${PROJECT_BINARY_DIR}/include/"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${LUMQT_PACKAGE}" FILES_MATCHING PATTERN "*.h")

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

install(EXPORT ${LUMQT_PACKAGE}Targets NAMESPACE LumQtLib:: DESTINATION "${package_dir}")
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/LumQtLibConfig.cmake.in" "${PROJECT_BINARY_DIR}/${LUMQT_PACKAGE}Config.cmake"
    INSTALL_DESTINATION "${package_dir}" PATH_VARS LUMQT_INSTALL_RES_DIR LUMQT_INSTALL_PLUGIN_DIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/${LUMQT_PACKAGE}ConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/${LUMQT_PACKAGE}Config.cmake"
              "${PROJECT_BINARY_DIR}/${LUMQT_PACKAGE}ConfigVersion.cmake" DESTINATION "${package_dir}")
