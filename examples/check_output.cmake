# Runs a program and fails unless it does what is expected:
#   -DEXPECTED=file   succeeds and prints exactly the text of the file
#   -DREFUSAL=text    ends with status 1, prints nothing, and the line on standard error is the text
#   cmake -DCOMMAND=program|argument|... -DEXPECTED=file -P check_output.cmake
string(REPLACE "|" ";" COMMAND "${COMMAND}")
execute_process(COMMAND ${COMMAND} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
if(DEFINED REFUSAL)
  set(expectedStatus 1)
  set(expected "")
  set(expectedErrors "${REFUSAL}\n")
else()
  set(expectedStatus 0)
  file(READ ${EXPECTED} expected)
  set(expectedErrors "")
endif()
if(NOT status STREQUAL expectedStatus OR NOT output STREQUAL expected OR
   NOT errors STREQUAL expectedErrors)
  message(FATAL_ERROR
    "status ${status}, expected ${expectedStatus}\nprinted:\n${output}\nexpected:\n${expected}\n"
    "on standard error:\n${errors}\nexpected:\n${expectedErrors}")
endif()
