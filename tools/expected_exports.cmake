# Sets expected to the sorted names of the list EXPORTS, after checking that they are twenty and that HEADER
# declares exactly them. For the checks of what a built library exports.
file(STRINGS ${EXPORTS} expected)
list(SORT expected)
list(LENGTH expected expectedCount)
if(NOT expectedCount EQUAL 20)
  message(SEND_ERROR "the list has ${expectedCount} names, not twenty")
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
