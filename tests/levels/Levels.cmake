# Compiles one line, #include "HEADER", with the include folders that a library's own sources have.
# EXPECT says what has to come of it: "compiles" or "fails". A failure has to be that of a header
# that is not found; any other would hide a wrong list of folders.
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
  message(FATAL_ERROR "#include \"${HEADER}\" ${outcome}, but has to be such that it ${EXPECT}.\n${message}")
endif()
