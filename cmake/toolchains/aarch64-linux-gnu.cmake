# Builds for 64-bit ARM on another processor, with Debian's cross compiler and the libraries in
# KALVEX_SYSROOT (scripts/test-arm64 makes that folder); qemu runs the tests.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

set(KALVEX_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot-arm64 CACHE PATH
    "Root of a system for the processor that is built for")
get_filename_component(KALVEX_SYSROOT ${KALVEX_SYSROOT} ABSOLUTE)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KALVEX_SYSROOT)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_SYSROOT ${KALVEX_SYSROOT})
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${KALVEX_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR}
    ${KALVEX_SYSROOT}/usr/lib/aarch64-linux-gnu/pkgconfig:${KALVEX_SYSROOT}/usr/share/pkgconfig)

# moc and similar tools run during the build, so those of this machine are used. They must have the
# same version as the Qt libraries of the sysroot.
set(QT_HOST_PATH /usr CACHE PATH "Where Qt is for programs that run while building")
file(GLOB KALVEX_HOST_QT /usr/lib/*/cmake/Qt6HostInfo)
if(KALVEX_HOST_QT)
  list(GET KALVEX_HOST_QT 0 KALVEX_HOST_QT)
  get_filename_component(KALVEX_HOST_QT ${KALVEX_HOST_QT} DIRECTORY)
  set(QT_HOST_PATH_CMAKE_DIR ${KALVEX_HOST_QT} CACHE PATH "CMake files of that Qt")
endif()

# The programs name the loader and the libraries of the sysroot themselves. The emulator could redirect
# every absolute path there instead, but then a test that goes from "/" to its own folder finds the
# sysroot's.
set(libraries ${KALVEX_SYSROOT}/usr/lib/aarch64-linux-gnu)
string(CONCAT loading
    " -Wl,--dynamic-linker=${KALVEX_SYSROOT}/lib/ld-linux-aarch64.so.1"
    " -Wl,--disable-new-dtags -Wl,-rpath,${libraries}:${KALVEX_SYSROOT}/lib/aarch64-linux-gnu")
string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT ${loading})

# In a sysroot Qt does not find its platform plug-ins without help.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64-static;-E;QT_PLUGIN_PATH=${libraries}/qt6/plugins
    CACHE STRING "Runs a program of the other processor")
