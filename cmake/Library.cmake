# corvane_library(NAME SOURCE...): a static library. Its public headers lie in include/<library>/ and
# are included as "<library>/Header.h"; all others can be included from its own sources only.
function(corvane_library name)
  add_library(${name} ${ARGN})
  target_include_directories(${name} PUBLIC include PRIVATE .)
  target_link_libraries(${name} PUBLIC corvane_compiler)
endfunction()
