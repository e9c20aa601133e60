# 64-bit RISC-V.
set(triple riscv64-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/linux_cross.cmake)
