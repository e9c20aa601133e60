# Checks that a DLL exports exactly the names of the list, that the header declares them, and that it imports
# from Windows' own DLLs alone.
#   cmake -DOBJDUMP=<objdump> -DLIBRARY=<Trelvanix.dll> -DEXPORTS=<exports.txt> -DHEADER=<trelvanix.h>
#         -P check_dll.cmake
cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/expected_exports.cmake)

# The kernel and the C runtime are part of every Windows.
set(systemLibraries "^(KERNEL32|msvcrt|ucrtbase|api-ms-win-crt-[a-z0-9-]+)\\.dll$")

execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
# Brackets would keep CMake from splitting its lists.
string(REGEX REPLACE "[][]" "|" dump "${dump}")

string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${dump}")
if(NOT imports)
  message(FATAL_ERROR "no imports found in ${LIBRARY}")
endif()
foreach(line IN LISTS imports)
  string(REPLACE "DLL Name: " "" library "${line}")
  if(NOT library MATCHES "${systemLibraries}")
    message(SEND_ERROR "imports from ${library}")
  endif()
endforeach()

string(REGEX MATCH "\\|Ordinal/Name Pointer\\| Table\n(\t\\|[^\n]*\n)*" table "${dump}")
string(REGEX MATCHALL "\t[^\n]+" exported "${table}")
list(TRANSFORM exported REPLACE "^.*\\| " "")
list(SORT exported)
if(NOT exported STREQUAL expected)
  message(SEND_ERROR "exported: ${exported}\nexpected: ${expected}")
endif()
