# What every target of the program is compiled with, in one interface target.
include(CheckCXXCompilerFlag)

add_library(corvane_compiler INTERFACE)
target_compile_features(corvane_compiler INTERFACE cxx_std_20)

if(MSVC)
  target_compile_options(corvane_compiler INTERFACE
    /W4 /permissive- /utf-8 /EHsc $<$<BOOL:${CORVANE_WERROR}>:/WX>)
  target_link_options(corvane_compiler INTERFACE /MANIFEST:NO)  # the resources have it
else()
  target_compile_options(corvane_compiler INTERFACE
    -Wall -Wextra -Wpedantic $<$<BOOL:${CORVANE_WERROR}>:-Werror>
    -Wconversion -Wsign-conversion  # numbers from files are narrowed on purpose or not at all
    -Wshadow                        # a shadowed index edits the wrong record
    -Wold-style-cast -Wcast-align   # bytes become records in few places, each marked as such
    -Wnon-virtual-dtor -Woverloaded-virtual
    -Wimplicit-fallthrough -Wnull-dereference -Wformat=2
    # g++ 12 sees overlaps in the + of strings that are not there.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # Released files do not tell where they were built.
    $<$<CONFIG:Release>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>)
endif()

if(WIN32)
  # UTF-16 calls unless named otherwise, those of Windows 7 and later, and no macros min and max.
  target_compile_definitions(corvane_compiler INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
  # One file that needs nothing installed: the runtimes are linked in. GoogleTest asks for a CMake so
  # old that it would ignore the choice.
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
  set(CMAKE_POLICY_DEFAULT_CMP0091 NEW)
  if(MSVC)
    target_link_options(corvane_compiler INTERFACE /Brepro)  # no time stamp
  elseif(MINGW)
    target_link_options(corvane_compiler INTERFACE
      -static -Wl,--no-insert-timestamp $<$<CONFIG:Release>:-s>)
  endif()
endif()

if(CORVANE_FUZZ)
  set(CORVANE_SANITIZERS -fsanitize=fuzzer-no-link,address,undefined)
elseif(CORVANE_SANITIZE)
  set(CORVANE_SANITIZERS -fsanitize=address,undefined)
endif()
if(CORVANE_SANITIZERS)
  target_compile_options(corvane_compiler INTERFACE
    ${CORVANE_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(corvane_compiler INTERFACE ${CORVANE_SANITIZERS})
elseif(CMAKE_SYSTEM_NAME STREQUAL Linux)
  include(Hardening)
endif()
