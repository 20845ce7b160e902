# The compiler options of every target, in one interface target.
include(CheckCXXCompilerFlag)

add_library(corvane_compiler INTERFACE)
target_compile_features(corvane_compiler INTERFACE cxx_std_20)

if(MSVC)
  target_compile_options(corvane_compiler INTERFACE
    /W4 /permissive- /utf-8 /EHsc $<$<BOOL:${CORVANE_WERROR}>:/WX>)
  target_link_options(corvane_compiler INTERFACE /MANIFEST:NO)  # the resources contain the manifest
else()
  target_compile_options(corvane_compiler INTERFACE
    -Wall -Wextra -Wpedantic $<$<BOOL:${CORVANE_WERROR}>:-Werror>
    -Wconversion -Wsign-conversion  # narrowing a number from a file must be explicit
    -Wshadow                        # a shadowed index edits the wrong record
    -Wold-style-cast -Wcast-align   # only a few places reinterpret bytes as records
    -Wnon-virtual-dtor -Woverloaded-virtual
    -Wimplicit-fallthrough -Wnull-dereference -Wformat=2
    # g++ 12 reports false overlaps in string concatenation.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # Keep build paths out of released files.
    $<$<CONFIG:Release>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>
    # Let the linker drop what nothing uses.
    $<$<CONFIG:Release>:-ffunction-sections> $<$<CONFIG:Release>:-fdata-sections>)
  target_link_options(corvane_compiler INTERFACE $<$<CONFIG:Release>:LINKER:--gc-sections>)
endif()

if(WIN32)
  # Wide-character functions by default, the API of Windows 7, and no macros min and max.
  target_compile_definitions(corvane_compiler INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
  # Link the runtimes statically, so that the program is one file without dependencies. GoogleTest
  # requests such an old CMake that it would ignore the setting without the policy.
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
  set(CMAKE_POLICY_DEFAULT_CMP0091 NEW)
  if(MSVC)
    target_link_options(corvane_compiler INTERFACE /Brepro)  # no timestamp
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
