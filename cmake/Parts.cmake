# The parts of the build: libraries and programs made from whole folders.

# Lists in ${result} every .cpp file below folder, as paths from the root. A new file is picked up
# by the next build.
function(collect_sources result folder)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}" "${folder}/*.cpp")
  set(${result} ${sources} PARENT_SCOPE)
endfunction()

# add_part(LIBRARY|PROGRAM name SOURCES ... USES ...)
# A part without sources is left out, and so is the use of one.
function(add_part kind name)
  cmake_parse_arguments(PARSE_ARGV 2 part "" "" "SOURCES;USES")
  if(NOT part_SOURCES)
    return()
  endif()
  if(kind STREQUAL "LIBRARY")
    add_library(${name} STATIC ${part_SOURCES})
  else()
    add_executable(${name} ${part_SOURCES})
  endif()
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  foreach(used IN LISTS part_USES)
    if(TARGET ${used} OR NOT used MATCHES "^zavdragdrop")
      target_link_libraries(${name} PUBLIC ${used})
    endif()
  endforeach()
endfunction()
