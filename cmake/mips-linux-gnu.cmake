# 32-bit big-endian MIPS (g++-mips-linux-gnu); the libraries of others by scripts/mips-sysroot.
include("${CMAKE_CURRENT_LIST_DIR}/CrossSysroot.cmake")
set(CMAKE_SYSTEM_PROCESSOR mips)
nrvk_cross_build(mips-linux-gnu mips-sysroot qemu-mips)
