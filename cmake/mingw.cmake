# The common part of both MinGW-w64 toolchains; the includer sets MINGW_TARGET. Built programs run under
# Wine if it is installed.
set(CMAKE_SYSTEM_NAME Windows)

# Debian has two variants of the compiler; GoogleTest needs the one with C++ threads.
find_program(MINGW_CXX NAMES ${MINGW_TARGET}-g++-posix ${MINGW_TARGET}-g++ REQUIRED)
find_program(MINGW_CC NAMES ${MINGW_TARGET}-gcc-posix ${MINGW_TARGET}-gcc REQUIRED)
set(CMAKE_CXX_COMPILER ${MINGW_CXX})
set(CMAKE_C_COMPILER ${MINGW_CC})
set(CMAKE_RC_COMPILER ${MINGW_TARGET}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${MINGW_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

find_program(WINE wine)
if(WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${WINE})
endif()
