# What every target of the project is compiled with: vorquell_options.

add_library(vorquell_options INTERFACE)
target_compile_features(vorquell_options INTERFACE cxx_std_20)
# Results must not depend on whether the processor can fuse a multiplication and an addition.
target_compile_options(vorquell_options INTERFACE -ffp-contract=off
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# Binaries do not depend on the folder that they were built in.
target_compile_options(vorquell_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
if(VORQUELL_WERROR)
  target_compile_options(vorquell_options INTERFACE -Werror)
endif()

if(VORQUELL_SANITIZE)
  add_compile_options(-fsanitize=${VORQUELL_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VORQUELL_SANITIZE})
  set(VORQUELL_STATIC_TOOL OFF)
  # Its checks would hide from the sanitizers what they look for.
  set(VORQUELL_HARDEN OFF)
endif()
if(VORQUELL_FUZZERS AND CMAKE_CXX_COMPILER_ID MATCHES Clang)
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
