# What distributions harden their packages with, each where compiler and machine have it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

foreach(flag IN ITEMS -fstack-protector-strong -fstack-clash-protection -fcf-protection
        -mbranch-protection=standard)
  string(MAKE_C_IDENTIFIER VYR_HAS${flag} is_known)
  check_cxx_compiler_flag(${flag} ${is_known})
  if(${is_known})
    add_compile_options(${flag})
  endif()
endforeach()

# Works on optimised code only; a distribution's own flags may ask for it, too.
set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
add_compile_options($<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=2>)
add_link_options(LINKER:-z,relro LINKER:-z,now)
