# add_fuzzers(SOURCES ... INPUTS ... USES ...)
# Makes each source a libFuzzer program of its own, where the compiler is clang++. CTest lets it
# try the inputs as they are, so that the result is always the same. To look for new ones, run it
# by hand: build/sanitize/bin/xml_fuzz -max_total_time=600
function(add_fuzzers)
  cmake_parse_arguments(PARSE_ARGV 0 fuzzers "" "" "SOURCES;INPUTS;USES")
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    return()
  endif()
  foreach(source IN LISTS fuzzers_SOURCES)
    cmake_path(GET source STEM name)
    add_part(PROGRAM ${name} SOURCES ${source} USES ${fuzzers_USES})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    add_test(NAME ${name} COMMAND ${name} ${fuzzers_INPUTS})
  endforeach()
endfunction()
