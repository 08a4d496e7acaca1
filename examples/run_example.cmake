# Runs PROGRAM with ARGUMENTS and compares what it prints, less the blanks at line ends, with the
# file EXPECTED.
execute_process(COMMAND "${PROGRAM}" ${ARGUMENTS}
    OUTPUT_VARIABLE printed ERROR_VARIABLE errors RESULT_VARIABLE status)
file(READ "${EXPECTED}" expected)
string(REGEX REPLACE "[ \r]+\n" "\n" printed "${printed}${errors}")
if(NOT status MATCHES "^[01]$" OR NOT printed STREQUAL expected)
    message(FATAL_ERROR "Status ${status}. Printed:\n${printed}\nExpected:\n${expected}")
endif()
