# Language level, warnings, floating point and sanitizers for all targets: only here.
add_library(vantrel_options INTERFACE)
target_compile_features(vantrel_options INTERFACE cxx_std_20)
# Pivots and ties are decided by floating-point results: they must be the same everywhere.
if(MSVC)
  target_compile_options(vantrel_options INTERFACE /W4 /fp:precise /utf-8)
else()
  target_compile_options(vantrel_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -ffp-contract=off)
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    target_compile_options(vantrel_options INTERFACE -Wreserved-identifier)
  endif()
  # GCC 12 sees overlapping and endless copies inside std::string's operator+, and reads beyond the local buffer
  # where a string is moved, where there are none (GCC bugs 105651, 105329 and 105762), the latter two in
  # optimised builds only.
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(vantrel_options INTERFACE -Wno-restrict
                           $<$<CONFIG:Release>:-Wno-stringop-overflow> $<$<CONFIG:Release>:-Wno-stringop-overread>
                           $<$<CONFIG:Release>:-Wno-array-bounds>)
  endif()
endif()
if(VANTREL_WERROR)
  target_compile_options(vantrel_options INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()
# What is installed is hardened against faults that nobody has found yet, as far as the compiler knows how.
# Sanitizers have their own ways.
if(NOT MSVC AND NOT VANTREL_SANITIZE)
  include(CheckCXXCompilerFlag)
  include(CheckLinkerFlag)
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  foreach(protection stack-protector-strong stack-clash-protection cf-protection)
    string(TOUPPER VANTREL_HAS_${protection} known)
    string(REPLACE - _ known ${known})
    check_cxx_compiler_flag(-f${protection} ${known})
    if(${known})
      target_compile_options(vantrel_options INTERFACE $<${optimised}:-f${protection}>)
    endif()
  endforeach()
  target_compile_options(vantrel_options INTERFACE $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=2>)
  check_linker_flag(CXX -Wl,-z,relro,-z,now VANTREL_HAS_BIND_NOW)
  if(VANTREL_HAS_BIND_NOW)
    target_link_options(vantrel_options INTERFACE -Wl,-z,relro,-z,now)
  endif()
endif()
# A hundred tests are linked: by a quick linker where there is one.
find_program(VANTREL_LLD ld.lld)
if(VANTREL_LLD AND CMAKE_BUILD_TYPE STREQUAL Debug)
  target_link_options(vantrel_options INTERFACE -fuse-ld=lld)
endif()
if(VANTREL_SANITIZE)
  target_compile_options(vantrel_options INTERFACE -fsanitize=${VANTREL_SANITIZE} -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(vantrel_options INTERFACE -fsanitize=${VANTREL_SANITIZE})
  # The checks that the sanitizers add hide from GCC that std::regex sets what it reads.
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_compile_options(vantrel_options INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
if(VANTREL_COVERAGE)
  target_compile_options(vantrel_options INTERFACE --coverage)
  target_link_options(vantrel_options INTERFACE --coverage)
endif()
