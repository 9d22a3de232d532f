# SPDX-License-Identifier: Apache-2.0
# Reads headers that many of a target's sources include once for all of them. A compiler cache does better without.
function(epon_precompile target)
    if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()
