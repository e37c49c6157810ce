# How what is built resists attacks: addresses that differ from run to run, stacks and buffers that
# are watched, and tables of the linker that can't be written to. Include it before targets are made.
#
# An optimised build checks the buffers of the C library's functions; without optimisation those
# checks don't exist. The sanitizers check more, and don't go together with it.

include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(orvalix_hardening INTERFACE)
if(ORVALIX_HARDENING AND NOT ORVALIX_SANITIZE)
  target_compile_options(orvalix_hardening INTERFACE -fstack-protector-strong)
  set(_optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  # Some compilers define it by themselves.
  target_compile_options(orvalix_hardening INTERFACE
                         $<${_optimised}:-U_FORTIFY_SOURCE> $<${_optimised}:-D_FORTIFY_SOURCE=2>)
  target_link_options(orvalix_hardening INTERFACE -Wl,-z,relro,-z,now)
endif()
