# Language level, warnings, floating point and sanitizers for all targets: only here.
add_library(vantrel_options INTERFACE)
target_compile_features(vantrel_options INTERFACE cxx_std_20)
target_compile_options(vantrel_options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
# Pivots and ties are decided by floating-point results: they must be the same everywhere.
target_compile_options(vantrel_options INTERFACE -ffp-contract=off)
if(VANTREL_WERROR)
  target_compile_options(vantrel_options INTERFACE -Werror)
endif()
if(VANTREL_SANITIZE)
  target_compile_options(vantrel_options INTERFACE -fsanitize=${VANTREL_SANITIZE} -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(vantrel_options INTERFACE -fsanitize=${VANTREL_SANITIZE})
endif()
