# EXPAT::EXPAT for browsers, where no package brings it: the sources of Debian's, compiled here
# without document type declarations, which the component refuses anyway.
set(expat_sources "${PROJECT_BINARY_DIR}/expat")
execute_process(COMMAND "${PROJECT_SOURCE_DIR}/tools/fetch-expat" "${expat_sources}"
                RESULT_VARIABLE expat_result ERROR_VARIABLE expat_message)
if(NOT expat_result EQUAL 0)
  message(FATAL_ERROR "${expat_message}")
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
             "${PROJECT_SOURCE_DIR}/tools/fetch-expat")

enable_language(C)
set(expat_library "${expat_sources}/expat/lib")
add_library(expat STATIC "${expat_library}/xmlparse.c" "${expat_library}/xmlrole.c"
                         "${expat_library}/xmltok.c")
add_library(EXPAT::EXPAT ALIAS expat)
target_include_directories(expat SYSTEM PUBLIC "${expat_library}")
target_include_directories(expat PRIVATE "${PROJECT_SOURCE_DIR}/cmake")  # expat_config.h
