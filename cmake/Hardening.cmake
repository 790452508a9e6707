# What makes a fault harder to exploit, where compiler and linker know it: in vorquell_options what
# everything is compiled with, and for programs and shared libraries
#   VORQUELL_PROGRAM_LINK_OPTIONS, VORQUELL_LIBRARY_LINK_OPTIONS
# These are no part of vorquell_options, as static libraries hand its link options to their users.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

# vorquell_check(VARIABLE SOURCE COMPILE_OPTIONS LINK_OPTIONS): whether it compiles and links.
function(vorquell_check variable source compile_options link_options)
  set(CMAKE_REQUIRED_FLAGS ${compile_options})
  set(CMAKE_REQUIRED_LINK_OPTIONS ${link_options})
  set(CMAKE_REQUIRED_QUIET ON)
  check_cxx_source_compiles("${source}" ${variable})
endfunction()

set(VORQUELL_PROGRAM_LINK_OPTIONS)
set(VORQUELL_LIBRARY_LINK_OPTIONS)

if(VORQUELL_HARDEN)
  # Of CET the shadow stack. Landing pads for indirect calls cost the shortest comparisons a tenth,
  # and no Linux looks for them in programs.
  foreach(flag -fstack-protector-strong -fcf-protection=return)
    string(MAKE_C_IDENTIFIER "VORQUELL_KNOWS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
      target_compile_options(vorquell_options INTERFACE ${flag})
    endif()
  endforeach()

  # Level 3 wants g++ 12 or clang 9, and glibc 2.35. Without optimisation there is none.
  vorquell_check(VORQUELL_KNOWS_FORTIFY_3 "#include <cstdlib>\nint main() { return 0; }"
    "-O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -Werror" "")
  set(level 2)
  if(VORQUELL_KNOWS_FORTIFY_3)
    set(level 3)
  endif()
  target_compile_options(vorquell_options INTERFACE
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=${level}>")

  set(VORQUELL_LIBRARY_LINK_OPTIONS -Wl,-z,relro,-z,now)
  set(VORQUELL_PROGRAM_LINK_OPTIONS -pie -Wl,-z,relro,-z,now)
endif()

# A program that asks nothing of the loader starts in half the time. Relocating itself would cost it
# 4 % more, but 2 % where relocations are packed (glibc 2.36) and what is unused is left out.
set(VORQUELL_PROGRAMS_ARE_PIE ${VORQUELL_HARDEN})
if(VORQUELL_STATIC_TOOL)
  set(packed_pie -static-pie -Wl,--gc-sections -Wl,-z,relro,-z,now,-z,pack-relative-relocs)
  vorquell_check(VORQUELL_CAN_LINK_STATIC_PIE
    "#include <cstdlib>\n#if !__GLIBC_PREREQ(2, 36)\n#error\n#endif\nint main() { return 0; }"
    -fPIE "${packed_pie};-Wl,--fatal-warnings")
  vorquell_check(VORQUELL_CAN_LINK_STATICALLY "int main() { return 0; }" "" -static)
  if(VORQUELL_HARDEN AND VORQUELL_CAN_LINK_STATIC_PIE)
    set(VORQUELL_PROGRAM_LINK_OPTIONS ${packed_pie})
  elseif(VORQUELL_CAN_LINK_STATICALLY)
    set(VORQUELL_PROGRAM_LINK_OPTIONS -static)
    set(VORQUELL_PROGRAMS_ARE_PIE OFF)
  endif()
endif()
