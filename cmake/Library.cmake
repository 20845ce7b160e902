# corvane_library(NAME SOURCE...): adds a static library. Its public headers are in include/<library>/
# and are included as "<library>/Header.h"; only its own sources can include its other headers.
function(corvane_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC include PRIVATE .)
  target_link_libraries(${name} PUBLIC corvane_compiler)
endfunction()
