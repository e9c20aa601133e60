# Sets expected to the sorted names of the list EXPORTS, after checking that HEADER declares exactly them. For the
# checks of what a built library exports.
file(STRINGS ${EXPORTS} expected)
list(SORT expected)

file(STRINGS ${HEADER} declarations REGEX "^[A-Z]+_API ")
set(declared)
foreach(line IN LISTS declarations)
  string(REGEX REPLACE "^[^(]*[ *]([A-Za-z0-9_]+)\\(.*$" "\\1" name "${line}")
  list(APPEND declared ${name})
endforeach()
list(SORT declared)
if(NOT expected OR NOT declared STREQUAL expected)
  message(SEND_ERROR "declared: ${declared}\nexpected: ${expected}")
endif()
