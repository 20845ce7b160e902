# Compiles one line, #include "HEADER", with the include folders of a library's own sources. EXPECT is
# "compiles" or "fails". Only a missing header counts as "fails"; any other error would hide a wrong
# list of folders.
#
# cmake -DCOMPILER=... -DFLAGS=... -DFOLDERS=... -DHEADER=... -DEXPECT=... -P Levels.cmake

set(arguments -x c++ -fsyntax-only ${FLAGS})
foreach(folder IN LISTS FOLDERS)
  list(APPEND arguments -I${folder})
endforeach()
execute_process(
  COMMAND ${CMAKE_COMMAND} -E echo "#include \"${HEADER}\""
  COMMAND ${COMPILER} ${arguments} -
  RESULT_VARIABLE result ERROR_VARIABLE message)
if(result EQUAL 0)
  set(outcome compiles)
elseif(message MATCHES "fatal error: '?${HEADER}'?[: ]+.*(No such file|file not found)")
  set(outcome fails)
else()
  set(outcome "fails for another reason")
endif()
if(NOT outcome STREQUAL EXPECT)
  message(FATAL_ERROR "#include \"${HEADER}\" ${outcome}, but the test expects: ${EXPECT}.\n${message}")
endif()
