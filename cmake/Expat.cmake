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
# Names with prefixes are the component's business. A browser gives random numbers, and it has no
# environment variables: without those, what expat could report about itself is left out, and with
# it all that would format the report.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/expat_config/expat_config.h" CONTENT "\
#include <stdlib.h>
#include <unistd.h>
#define BYTEORDER 1234
#define HAVE_MEMMOVE
#define HAVE_ARC4RANDOM_BUF
#define arc4random_buf getentropy
#define getenv(name) ((void)(name), NULL)
#define NDEBUG
#define XML_CONTEXT_BYTES 0
#define XML_MIN_SIZE
")
target_include_directories(expat PRIVATE "${PROJECT_BINARY_DIR}/expat_config")
