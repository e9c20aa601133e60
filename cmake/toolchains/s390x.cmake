# IBM Z, which keeps numbers in big-endian order.
set(triple s390x-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/linux_cross.cmake)
