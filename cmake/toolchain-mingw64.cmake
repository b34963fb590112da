# Cross-compiles for 64-bit Windows with Debian's MinGW-w64 (the posix-threads variant). Qt for Windows is the one
# that scripts/build-qt-windows.sh builds; its folder is given as LUMQT_QT_WINDOWS, in the environment or the cache.
# Qt 6's has no tools (moc, rcc, ...) of its own and remembers where the native ones are.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT LUMQT_QT_WINDOWS)
    set(LUMQT_QT_WINDOWS "$ENV{LUMQT_QT_WINDOWS}")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES LUMQT_QT_WINDOWS)

set(CMAKE_FIND_ROOT_PATH "${LUMQT_QT_WINDOWS}" /usr/x86_64-w64-mingw32)
list(APPEND CMAKE_PREFIX_PATH "${LUMQT_QT_WINDOWS}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# Programs run under Wine: CTest prefixes each with this script, which knows where the DLLs lie.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-run.sh")
