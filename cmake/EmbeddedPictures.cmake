# Builds the pictures of a folder into a target, as src/platform/headless/EmbeddedPictures.h
# declares them.
function(embed_pictures target folder)
  if(NOT TARGET ${target})
    return()
  endif()
  file(GLOB pictures CONFIGURE_DEPENDS "${folder}/*.png" "${folder}/*.bmp")
  set(script "${PROJECT_SOURCE_DIR}/cmake/WriteEmbeddedPictures.cmake")
  set(output "${PROJECT_BINARY_DIR}/EmbeddedPictures.cpp")
  add_custom_command(
    OUTPUT "${output}"
    COMMAND "${CMAKE_COMMAND}" "-DPICTURES=${pictures}" "-DOUTPUT=${output}" -P "${script}"
    DEPENDS ${pictures} "${script}"
    VERBATIM)
  target_sources(${target} PRIVATE "${output}")
endfunction()
