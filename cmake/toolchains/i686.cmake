# 32-bit x86. Its programs run on a 64-bit processor as they are, but for the place of their C library.
set(triple i686-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/linux_cross.cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR
  /usr/${triple}/lib/ld-linux.so.2 --library-path /usr/${triple}/lib)
