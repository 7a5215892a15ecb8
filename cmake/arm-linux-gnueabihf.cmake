# 32-bit ARM with Debian's cross compiler (g++-arm-linux-gnueabihf); what is built runs under qemu-user. The libraries of
# others come from build/arm-sysroot (scripts/arm-sysroot), C and C++ library from the cross compiler.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

get_filename_component(_sysroot "${CMAKE_CURRENT_LIST_DIR}/../build/arm-sysroot" ABSOLUTE)
set(_libraries "${_sysroot}/usr/lib/arm-linux-gnueabihf")
set(CMAKE_FIND_ROOT_PATH "${_sysroot}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} "${_libraries}/pkgconfig:${_sysroot}/usr/share/pkgconfig")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${_sysroot}")
set(CMAKE_CXX_FLAGS_INIT
  "-isystem ${_sysroot}/usr/include -isystem ${_sysroot}/usr/include/arm-linux-gnueabihf")
# Libraries that those we link need in turn.
foreach(_kind IN ITEMS EXE SHARED)
  set(CMAKE_${_kind}_LINKER_FLAGS_INIT "-L${_libraries} -Wl,-rpath-link,${_libraries}:${_sysroot}/lib/arm-linux-gnueabihf")
endforeach()

set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-arm -L /usr/arm-linux-gnueabihf -E
  "LD_LIBRARY_PATH=${_libraries}:${_sysroot}/lib/arm-linux-gnueabihf")
