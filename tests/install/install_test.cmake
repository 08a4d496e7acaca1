# Installs the built tree into a fresh folder and builds a program that finds the library there.

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "status ${status} of ${ARGV}\n${out}")
    endif()
endfunction()

set(prefix "${WORK_DIR}/prefix")
file(REMOVE_RECURSE "${WORK_DIR}")

run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}")
set(explorer_files)
if(EXPLORER)
    set(explorer_files bin/lomar share/man/man1/lomar.1 share/bash-completion/completions/lomar)
endif()
foreach(file ${explorer_files} bin/lomar6 share/lomar6/lomar5.txt share/lomar6/sgrots3.txt share/doc/lomar6/README.md)
    if(NOT EXISTS "${prefix}/${file}")
        message(FATAL_ERROR "${file} was not installed")
    endif()
endforeach()

run("${CMAKE_COMMAND}" -S "${CONSUMER_DIR}" -B "${WORK_DIR}/build" -G "${GENERATOR}"
    "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_PREFIX_PATH=${prefix}")
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/build")
run("${WORK_DIR}/build/consumer")

# lomar has its data in itself.
if(EXPLORER)
    run("${CMAKE_COMMAND}" -E chdir "${WORK_DIR}" "${prefix}/bin/lomar" show "P 21/c")
endif()
