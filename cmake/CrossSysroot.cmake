# What the toolchain files of cross builds share. Their compiler is Debian's, what is built runs under qemu-user. The
# libraries of others come from a folder below build/, C and C++ library from the cross compiler.
#
#   nrvk_cross_build(TRIPLET SYSROOT EMULATOR)     arm-linux-gnueabihf, arm-sysroot, qemu-arm
macro(nrvk_cross_build triplet sysroot emulator)
  set(CMAKE_SYSTEM_NAME Linux)
  set(CMAKE_CXX_COMPILER "${triplet}-g++")
  set(CMAKE_LIBRARY_ARCHITECTURE "${triplet}")

  get_filename_component(_sysroot "${CMAKE_CURRENT_LIST_DIR}/../build/${sysroot}" ABSOLUTE)
  set(_libraries "${_sysroot}/usr/lib/${triplet}")
  list(APPEND CMAKE_FIND_ROOT_PATH "${_sysroot}")
  set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
  set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
  set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
  set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
  set(ENV{PKG_CONFIG_LIBDIR} "${_libraries}/pkgconfig:${_sysroot}/usr/share/pkgconfig")
  set(ENV{PKG_CONFIG_SYSROOT_DIR} "${_sysroot}")
  set(CMAKE_CXX_FLAGS_INIT "-isystem ${_sysroot}/usr/include -isystem ${_sysroot}/usr/include/${triplet}")
  # Libraries that those we link need in turn.
  foreach(_kind IN ITEMS EXE SHARED)
    set(CMAKE_${_kind}_LINKER_FLAGS_INIT "-L${_libraries} -Wl,-rpath-link,${_libraries}:${_sysroot}/lib/${triplet}")
  endforeach()

  set(CMAKE_CROSSCOMPILING_EMULATOR
    "${emulator}" -L "/usr/${triplet}" -E "LD_LIBRARY_PATH=${_libraries}:${_sysroot}/lib/${triplet}")
endmacro()
