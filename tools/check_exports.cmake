# Checks that a shared library exports exactly the names of the list and that the header declares them.
#   cmake -DNM=<nm> -DLIBRARY=<libTrelvanix.so> -DEXPORTS=<exports.txt> -DHEADER=<trelvanix.h>
#         -P check_exports.cmake
cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/expected_exports.cmake)

execute_process(COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${symbols}")
set(exported)
foreach(line IN LISTS lines)
  string(REGEX MATCH "^[^ ]+" name "${line}")
  list(APPEND exported ${name})
endforeach()
list(SORT exported)
if(NOT exported STREQUAL expected)
  message(SEND_ERROR "exported: ${exported}\nexpected: ${expected}")
endif()
