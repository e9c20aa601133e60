# WebAssembly with Debian's emscripten; programs run under Node. A shared library becomes a static one.
# The processor is named here because emscripten would pretend an x86, whose options it doesn't have.
set(EMSCRIPTEN_SYSTEM_PROCESSOR wasm32)
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR node)
set(CMAKE_CXX_FLAGS_INIT -fwasm-exceptions)
# Linked without optimisation of the JavaScript around the module, which needs more packages.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fwasm-exceptions -O1 -sALLOW_MEMORY_GROWTH=1 -sEXIT_RUNTIME=1 -sWASM_ASYNC_COMPILATION=0")
