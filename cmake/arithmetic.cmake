# Compile options that keep every result bit for bit the same on every processor and at every
# optimisation level. Linked by the library and by the tests whose oracles repeat its arithmetic.
add_library(trelvanix_arithmetic INTERFACE)

if(MSVC)
  target_compile_options(trelvanix_arithmetic INTERFACE /fp:precise /EHsc)
else()
  target_compile_options(trelvanix_arithmetic INTERFACE
    # A fused multiply-add rounds once where the contract rounds twice.
    -ffp-contract=off
    # Changes no value: nobody reads errno. (Without traps GCC would take int(x) as a rounded double, which keeps the
    # sign of a zero.)
    -fno-math-errno)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Where the target has fused multiply-adds, GCC's vectoriser makes use of them for complex products
    # in spite of -ffp-contract=off. Kernels name their vectors themselves and lose nothing without it.
    target_compile_options(trelvanix_arithmetic INTERFACE -fno-tree-vectorize -fno-tree-slp-vectorize)
  endif()
  if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86|x86_64|AMD64)$")
    # The 80-bit registers of the x87 unit would round twice.
    target_compile_options(trelvanix_arithmetic INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()
