# add_web_module(name SOURCES ... USES ... EXPORTS file)
# Links a WebAssembly module: bin/${name}.wasm, and bin/${name}.mjs with the functions that it
# imports. It exports the C functions that the file lists, one name a line as JavaScript knows it; #
# begins a comment. The target is ${name}_module.
function(add_web_module name)
  cmake_parse_arguments(PARSE_ARGV 1 module "" "EXPORTS" "SOURCES;USES")
  set(program ${name}_module)
  add_part(PROGRAM ${program} SOURCES ${module_SOURCES} USES ${module_USES})
  file(STRINGS "${module_EXPORTS}" lines)
  list(TRANSFORM lines REPLACE "[ \t#].*" "")
  list(FILTER lines INCLUDE REGEX ".")
  list(JOIN lines "\n" lines)
  set(exports "${PROJECT_BINARY_DIR}/${name}.exports")
  file(CONFIGURE OUTPUT "${exports}" CONTENT "${lines}\n")
  string(REPLACE "\n" ", " exported "${lines}")
  set(prefix "${PROJECT_BINARY_DIR}/${name}.prefix.js")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/WebModulePrefix.js.in" "${prefix}" @ONLY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${module_EXPORTS}")

  # JavaScript stands in EM_JS, where $ is as good as any letter.
  target_compile_options(${program} PRIVATE -Wno-dollar-in-identifier-extension)
  target_link_options(${program} PRIVATE
    # A module for pages with a strict content security policy.
    -sMODULARIZE=1 -sEXPORT_ES6=1 -sENVIRONMENT=web -sDYNAMIC_EXECUTION=0
    # It is a library: nothing runs when it is loaded, and it lives as long as the page.
    --no-entry -sNO_EXIT_RUNTIME=1
    # A stack that overflows traps instead of running into data.
    -sALLOW_MEMORY_GROWTH=1 -sINITIAL_MEMORY=384KB -sTOTAL_STACK=128KB -Wl,--stack-first
    # As little JavaScript as possible comes along.
    -sMINIMAL_RUNTIME=1 --pre-js "${prefix}"
    -sSTRICT=1 -sASSERTIONS=0 -sFILESYSTEM=0 -sSUPPORT_LONGJMP=0 -sMALLOC=emmalloc
    "-sEXPORTED_FUNCTIONS=@${exports}")
  # A second run of the linker's optimiser, which puts the smallest functions where they are called.
  find_program(WASM_OPT wasm-opt REQUIRED)
  add_custom_command(
    TARGET ${program} POST_BUILD
    COMMAND "${WASM_OPT}" "$<TARGET_FILE_DIR:${program}>/${name}.wasm" -Oz --converge
            --enable-exception-handling --enable-mutable-globals --enable-bulk-memory
            --enable-nontrapping-float-to-int --enable-sign-ext
            --always-inline-max-function-size=5
            -o "$<TARGET_FILE_DIR:${program}>/${name}.wasm"
    VERBATIM)
  # What type checks see of it, instead of reading it.
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/bin/${name}.d.mts" CONTENT "\
export default function createModule(options: {
  instantiate(imports: WebAssembly.Imports): Promise<{ instance: WebAssembly.Instance }>;
  page: object;
}): Promise<any>;
")
  set_target_properties(${program} PROPERTIES
    OUTPUT_NAME ${name} SUFFIX .mjs LINK_DEPENDS "${exports};${prefix}"
    RULE_LAUNCH_LINK "\"${CMAKE_COMMAND}\" -E env NODE_PATH=${node_modules} ")
endfunction()
