# 64-bit ARM.
set(triple aarch64-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/linux_cross.cmake)
