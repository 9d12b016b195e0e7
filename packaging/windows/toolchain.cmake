# Cross compilation for 64-bit Windows with Debian's MinGW-w64; threads are those of winpthreads.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# Libraries come from the cache of the toolchain, programs from the machine that compiles.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${triplet})
if(DEFINED ENV{OCUVA_WINDOWS_LIBRARIES})
    list(PREPEND CMAKE_FIND_ROOT_PATH $ENV{OCUVA_WINDOWS_LIBRARIES})
    list(PREPEND CMAKE_PREFIX_PATH $ENV{OCUVA_WINDOWS_LIBRARIES})
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The tools of Qt's build run on the machine that compiles, in the version of the libraries.
set(QT_HOST_PATH /usr CACHE PATH "Where the host's Qt is")
file(GLOB host_qt /usr/lib/*/cmake/Qt6HostInfo)
cmake_path(GET host_qt PARENT_PATH host_cmake)
set(QT_HOST_PATH_CMAKE_DIR ${host_cmake} CACHE PATH "Where the host's Qt describes itself")

# One program without further files.
set(ZLIB_USE_STATIC_LIBS ON)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
# Without names of functions it is a third of the size.
set(CMAKE_EXE_LINKER_FLAGS_RELEASE_INIT "-s")
set(CMAKE_SHARED_LINKER_FLAGS_RELEASE_INIT "-s")
