# Cross build for 64-bit Windows with Debian's MinGW-w64 (the posix-threads compilers of
# g++-mingw-w64-x86-64-posix). The programs are linked statically, so each .exe runs alone;
# CTest runs them under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(RAKEYARD_MINGW x86_64-w64-mingw32)

set(CMAKE_C_COMPILER ${RAKEYARD_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${RAKEYARD_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${RAKEYARD_MINGW}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${RAKEYARD_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
