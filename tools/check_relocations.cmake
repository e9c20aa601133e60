# Fails when a shared library refers to one of its own exports by name: the dynamic linker would lead that call or
# address to a function of the same name in the host.
#   cmake -DOBJDUMP=<objdump> -DLIBRARY=<lib.so> -DEXPORTS=<exports.txt> -P check_relocations.cmake
cmake_minimum_required(VERSION 3.22)

file(STRINGS ${EXPORTS} exported)
execute_process(COMMAND ${OBJDUMP} -R ${LIBRARY} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "R_[A-Z0-9_]+ +[A-Za-z_][^\n@+]*" relocations "${dump}")
if(NOT relocations)
  message(FATAL_ERROR "no relocations with a name found in ${LIBRARY}")
endif()
foreach(relocation IN LISTS relocations)
  string(REGEX REPLACE "^R_[A-Z0-9_]+ +" "" name "${relocation}")
  string(STRIP "${name}" name)
  if(name IN_LIST exported)
    message(SEND_ERROR "${LIBRARY}: refers to its export ${name} by name")
  endif()
endforeach()
list(LENGTH relocations count)
message(STATUS "${count} relocations checked")
