# Every object and every program has to agree on the sanitizers, so they are set for the whole tree.
if(TRELVANIX_SANITIZE)
  add_compile_options(
    -fsanitize=${TRELVANIX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TRELVANIX_SANITIZE})
  if(TRELVANIX_SANITIZE MATCHES "undefined")
    add_compile_options(-fsanitize=float-cast-overflow)
  endif()
  if(TRELVANIX_SANITIZE MATCHES "memory")
    add_compile_options(
      -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/tests/memory_sanitizer/uninstrumented.txt
      $<$<COMPILE_LANGUAGE:CXX>:-include$<SEMICOLON>${PROJECT_SOURCE_DIR}/tests/memory_sanitizer/own_templates.h>)
  endif()
endif()
