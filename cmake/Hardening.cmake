# Hardening of the Linux program: position-independent code, read-only relocations, and stack, buffer
# and branch protection where the compiler supports them.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

foreach(option -fstack-protector-strong -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER CORVANE_HAS${option} has)
  check_cxx_compiler_flag(${option} ${has})
  target_compile_options(corvane_compiler INTERFACE $<$<BOOL:${${has}}>:${option}>)
endforeach()

# Some systems predefine _FORTIFY_SOURCE; it requires optimization.
target_compile_options(corvane_compiler INTERFACE
  $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE>
  $<$<CONFIG:Release,RelWithDebInfo>:-D_FORTIFY_SOURCE=2>)
target_link_options(corvane_compiler INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
