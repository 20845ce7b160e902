# cmake -DPROGRAM=... -DFOLDER=... -P Arguments.cmake: an argument that is not a folder name creates
# nothing.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})

function(expect status)
  cmake_language(EVAL CODE "
    execute_process(COMMAND [[${PROGRAM}]] ${ARGN} WORKING_DIRECTORY [[${FOLDER}]]
                    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)")
  if(NOT result EQUAL ${status})
    message(SEND_ERROR "corvane-sample '${ARGN}' gives ${result} instead of ${status}")
  endif()
  if(NOT "${output}${errors}" MATCHES "usage: corvane-sample FOLDER")
    message(SEND_ERROR "corvane-sample '${ARGN}' prints '${output}${errors}'")
  endif()
  file(GLOB made ${FOLDER}/* ${FOLDER}/-*)
  if(made)
    message(SEND_ERROR "corvane-sample '${ARGN}' creates ${made}")
  endif()
endfunction()

expect(0 --help)
expect(1 [[""]])
expect(1 -h)
expect(1)
expect(1 one two)
