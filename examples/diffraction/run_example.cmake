# In a fresh folder FOLDER with the data files: lets TOOL list the reflections of SYMBOL up to LIMIT,
# then runs PROGRAM with ARGUMENTS and compares what it prints with the file EXPECTED.
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}/sg")
file(GLOB data "${DATA_DIR}/*.txt")
file(COPY ${data} DESTINATION "${FOLDER}")
execute_process(COMMAND "${TOOL}" "${SYMBOL}" -dir sg -hkl ${LIMIT} ${LIMIT} ${LIMIT}
    WORKING_DIRECTORY "${FOLDER}" OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
if(NOT printed STREQUAL "")
    message(FATAL_ERROR "The tool says: ${printed}")
endif()
execute_process(COMMAND "${PROGRAM}" ${ARGUMENTS}
    WORKING_DIRECTORY "${FOLDER}"
    OUTPUT_VARIABLE printed ERROR_VARIABLE errors RESULT_VARIABLE status)
file(READ "${EXPECTED}" expected)
string(REPLACE "\r" "" printed "${printed}${errors}")
string(REPLACE "\\" "/" printed "${printed}")
string(REGEX REPLACE "\n+$" "\n" printed "${printed}")
if(NOT status MATCHES "^[01]$" OR NOT printed STREQUAL expected)
    message(FATAL_ERROR "Status ${status}. Printed:\n${printed}\nExpected:\n${expected}")
endif()
