# corvane_faulty_files: objects that replace the file operations of corvane_base and inject faults
# around the real ones. A program that links them uses none of the library's own.
include_guard(GLOBAL)
set(steps Open Status PathStatus Read Write SetLength Flush Close Remove)
list(TRANSFORM steps REPLACE "(.+)" "System\\1=Real\\1" OUTPUT_VARIABLE renamed_steps)
add_library(corvane_real_files OBJECT ${CMAKE_SOURCE_DIR}/base/${CORVANE_SYSTEM}/SystemFile.cpp)
target_compile_definitions(corvane_real_files PRIVATE ${renamed_steps})
add_library(corvane_faulty_files OBJECT ${CMAKE_SOURCE_DIR}/tests/FaultySystemFile.cpp)
foreach(library corvane_real_files corvane_faulty_files)
  target_include_directories(${library} PRIVATE ${CMAKE_SOURCE_DIR}/base ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${library} PRIVATE corvane_base)
endforeach()
