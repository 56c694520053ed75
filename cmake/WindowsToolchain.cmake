# Builds Windows programs of 64 bits on Debian with MinGW-w64. SORVANE_WINDOWS_QT names the folder
# of the Qt that was built for it, which scripts/windows passes; Qt's own build has none yet.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The run-time libraries of the compiler go into the program, so that it needs no other file.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# try_compile reads this file again, without the variables of the build.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES SORVANE_WINDOWS_QT)

# A search that looked at the machine's own folders would find its Linux libraries.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${SORVANE_WINDOWS_QT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
