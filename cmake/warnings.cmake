add_library(trelvanix_warnings INTERFACE)

if(MSVC)
  target_compile_options(trelvanix_warnings INTERFACE /W4)
else()
  target_compile_options(trelvanix_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
endif()

if(TRELVANIX_WARNINGS_AS_ERRORS)
  if(MSVC)
    target_compile_options(trelvanix_warnings INTERFACE /WX)
  else()
    target_compile_options(trelvanix_warnings INTERFACE -Werror)
  endif()
endif()
