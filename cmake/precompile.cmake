# Headers that nearly every source of a library reads are compiled once. A compiler cache does the same job
# and cannot see through precompiled headers, so the two are not used together.
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(precompile_default OFF)
else()
  set(precompile_default ON)
endif()
option(VANTREL_PRECOMPILE "Precompile the headers of the libraries" ${precompile_default})

# vantrel_precompile(target header...)
function(vantrel_precompile target)
  if(VANTREL_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# vantrel_precompile_as(target other): with the headers of another target of the same options.
function(vantrel_precompile_as target other)
  if(VANTREL_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()
