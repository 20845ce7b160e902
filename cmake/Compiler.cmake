# What every target of the program is compiled with, in one interface target.
add_library(corvane_compiler INTERFACE)
target_compile_features(corvane_compiler INTERFACE cxx_std_20)

if(MSVC)
  target_compile_options(corvane_compiler INTERFACE /W4 /WX /permissive- /utf-8)
else()
  target_compile_options(corvane_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wconversion -Wsign-conversion  # numbers from files are narrowed on purpose or not at all
    -Wshadow                        # a shadowed index edits the wrong record
    -Wold-style-cast -Wcast-align   # bytes become records in few places, each marked as such
    -Wnon-virtual-dtor -Woverloaded-virtual
    -Wimplicit-fallthrough -Wnull-dereference -Wformat=2)
endif()

if(CORVANE_SANITIZE)
  target_compile_options(corvane_compiler INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(corvane_compiler INTERFACE -fsanitize=address,undefined)
endif()
