# Windows 10 and later on 64 bits, compiled on Debian. SCINTRA_WINDOWS_LIBRARIES is where packaging/windows/libraries
# has put Qt and the rest.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT SCINTRA_WINDOWS_LIBRARIES)
    if(DEFINED ENV{SCINTRA_WINDOWS_CACHE})
        set(SCINTRA_WINDOWS_LIBRARIES $ENV{SCINTRA_WINDOWS_CACHE}/installed)
    elseif(DEFINED ENV{XDG_CACHE_HOME})
        set(SCINTRA_WINDOWS_LIBRARIES $ENV{XDG_CACHE_HOME}/scintra-windows/installed)
    else()
        set(SCINTRA_WINDOWS_LIBRARIES $ENV{HOME}/.cache/scintra-windows/installed)
    endif()
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES SCINTRA_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH ${SCINTRA_WINDOWS_LIBRARIES} /usr/x86_64-w64-mingw32)
set(CMAKE_PREFIX_PATH ${SCINTRA_WINDOWS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${SCINTRA_WINDOWS_LIBRARIES}/lib/pkgconfig)

# the tools that Qt compiles with are the distribution's own
set(QT_HOST_PATH /usr)
file(GLOB SCINTRA_HOST_CMAKE /usr/lib/*/cmake/Qt6CoreTools)
cmake_path(GET SCINTRA_HOST_CMAKE PARENT_PATH QT_HOST_PATH_CMAKE_DIR)

# Windows 10: what it has is declared
add_compile_definitions(_WIN32_WINNT=0x0A00 WINVER=0x0A00)
