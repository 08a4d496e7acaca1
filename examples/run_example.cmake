# In a fresh folder FOLDER with the data files: runs TOOL, a command that must print nothing, if it
# is given; then the command PROGRAM, which must end with STATUS and print the text of the file
# EXPECTED. EMULATOR runs programs of another system.
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}/sg")
file(GLOB data "${DATA_DIR}/*.txt")
file(COPY ${data} DESTINATION "${FOLDER}")

function(run_in_folder command expected_status expected)
    execute_process(COMMAND ${EMULATOR} ${command} WORKING_DIRECTORY "${FOLDER}"
        OUTPUT_VARIABLE printed ERROR_VARIABLE errors RESULT_VARIABLE status)
    # A console of Windows adds carriage returns, and its paths have other separators.
    string(REPLACE "\r" "" printed "${printed}${errors}")
    string(REPLACE "\\" "/" printed "${printed}")
    string(REGEX REPLACE " +\n" "\n" printed "${printed}")
    string(REGEX REPLACE "\n+$" "\n" printed "${printed}")
    if(NOT status EQUAL expected_status OR NOT printed STREQUAL expected)
        message(FATAL_ERROR "Status ${status}. Printed:\n${printed}\nExpected:\n${expected}")
    endif()
endfunction()

if(TOOL)
    run_in_folder("${TOOL}" 1 "")  # the tool always ends with 1
endif()
file(READ "${EXPECTED}" expected)
run_in_folder("${PROGRAM}" ${STATUS} "${expected}")
