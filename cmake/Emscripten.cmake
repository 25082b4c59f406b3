# Toolchain of the preset `web`: Debian's emscripten, whose linker runs scripts with Debian's acorn.
set(emscripten "/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake")
set(node_modules "/usr/share/nodejs")
if(NOT EXISTS "${emscripten}" OR NOT EXISTS "${node_modules}/acorn")
  message(FATAL_ERROR "The web build needs emscripten and acorn: "
                      "apt-get install emscripten node-acorn (or tools/install-packages build)")
endif()
include("${emscripten}")
