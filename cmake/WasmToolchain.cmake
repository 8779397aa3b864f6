# WebAssembly, from Debian's emscripten. What is built for it runs under Node.
set(CMAKE_FIND_ROOT_PATH "${CMAKE_CURRENT_LIST_DIR}/../build/wasm-libraries")
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)

# What is loaded from a file must not be fetched.
set(CMAKE_CROSSCOMPILING_EMULATOR node --no-experimental-fetch)

# The linker runs programs of Node, whose packages another Node than Debian's does not find.
set(CMAKE_CXX_LINKER_LAUNCHER "${CMAKE_COMMAND}" -E env NODE_PATH=/usr/share/nodejs)

# The engine's own exceptions: those by way of JavaScript would make every call that may throw a slow one.
set(CMAKE_C_FLAGS_INIT -fwasm-exceptions)
set(CMAKE_CXX_FLAGS_INIT -fwasm-exceptions)
set(CMAKE_EXE_LINKER_FLAGS_INIT -fwasm-exceptions)
