# Checks that a shared library exports exactly the names of the list and that the header declares them.
#   cmake -DNM=<nm> -DLIBRARY=<libTrelvanix.so> -DEXPORTS=<exports.txt> -DHEADER=<trelvanix.h>
#         -P check_exports.cmake
cmake_minimum_required(VERSION 3.22)

file(STRINGS ${EXPORTS} expected)
list(SORT expected)
list(LENGTH expected expectedCount)
if(NOT expectedCount EQUAL 20)
  message(SEND_ERROR "the list has ${expectedCount} names, not twenty")
endif()

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

file(STRINGS ${HEADER} declarations REGEX "^TRELVANIX_API ")
set(declared)
foreach(line IN LISTS declarations)
  string(REGEX REPLACE "^TRELVANIX_API [a-z]+\\*? ([A-Za-z0-9]+)\\(.*$" "\\1" name "${line}")
  list(APPEND declared ${name})
endforeach()
list(SORT declared)
if(NOT declared STREQUAL expected)
  message(SEND_ERROR "declared: ${declared}\nexpected: ${expected}")
endif()
