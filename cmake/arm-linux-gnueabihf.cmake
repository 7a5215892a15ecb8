# 32-bit ARM (g++-arm-linux-gnueabihf); the libraries of others by scripts/arm-sysroot.
include("${CMAKE_CURRENT_LIST_DIR}/CrossSysroot.cmake")
set(CMAKE_SYSTEM_PROCESSOR arm)
nrvk_cross_build(arm-linux-gnueabihf arm-sysroot qemu-arm)
