# Every object and every program has to agree on the sanitizers, so they are set for the whole tree.
if(TRELVANIX_SANITIZE)
  add_compile_options(
    -fsanitize=${TRELVANIX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TRELVANIX_SANITIZE})
  if(TRELVANIX_SANITIZE MATCHES "undefined")
    add_compile_options(-fsanitize=float-cast-overflow)
  endif()
endif()
