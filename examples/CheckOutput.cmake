# cmake -DPROGRAM=... -DARGUMENT=... -DEXPECTED=file -P CheckOutput.cmake
# Fails unless the program ends with 0 and prints exactly what stands in the file.
execute_process(COMMAND "${PROGRAM}" "${ARGUMENT}" OUTPUT_VARIABLE printed
                COMMAND_ERROR_IS_FATAL ANY)
file(READ "${EXPECTED}" expected)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "${PROGRAM} printed:\n${printed}\nexpected:\n${expected}")
endif()
