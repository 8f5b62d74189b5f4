# Builds 64-bit Windows programs with Debian's mingw-w64. WINDOWS_ROOT (a variable of CMake or of the environment) is the
# folder that scripts/package-windows installs the built libraries into.
if(NOT WINDOWS_ROOT)
  set(WINDOWS_ROOT $ENV{WINDOWS_ROOT})
endif()
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES WINDOWS_ROOT)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH ${WINDOWS_ROOT} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST) # the test programs do not run here
