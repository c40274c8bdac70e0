# Cross-builds the Qt-free core, its tests and quillmere-cli for 64-bit Windows with MinGW-w64
# (Debian: g++-mingw-w64-x86-64-posix). Executables are linked statically, so they run alone, and
# run here under Wine (Debian: wine64) when CMake or CTest needs to start one.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW_PREFIX}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# No runtime DLLs to carry around: libstdc++, libgcc and winpthread go into each executable.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

find_program(QUILLMERE_WINE NAMES wine64 wine PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(QUILLMERE_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${QUILLMERE_WINE})
endif()

# pkg-config must not hand the host's libraries (liberfa) to the cross build: only what is built
# for MinGW-w64 counts.
set(ENV{PKG_CONFIG_LIBDIR} "/usr/x86_64-w64-mingw32/lib/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "")
