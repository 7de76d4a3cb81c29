# Cross-compiling for 64-bit Windows with mingw-w64 (posix threads), running results under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(WBS_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER   ${WBS_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${WBS_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER  ${WBS_MINGW_PREFIX}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${WBS_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# Static runtime: the DLL and the executables need only Windows system DLLs.
set(CMAKE_EXE_LINKER_FLAGS_INIT    "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")

# Every test and tool runs through Wine in the build's private prefix.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine-run.sh)
