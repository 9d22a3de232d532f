# SPDX-License-Identifier: Apache-2.0
# Scripts of the tests start programs by their path. Those of another machine than this one get a script that starts
# them under the emulator.
function(epon_runnable target result)
    if(NOT CMAKE_CROSSCOMPILING)
        set(${result} $<TARGET_FILE:${target}> PARENT_SCOPE)
        return()
    endif()
    list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " emulator)
    set(script ${PROJECT_BINARY_DIR}/emulated/${target})
    file(GENERATE OUTPUT ${script} CONTENT "#!/bin/sh\nexec ${emulator} $<TARGET_FILE:${target}> \"$@\"\n"
         FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    set(${result} ${script} PARENT_SCOPE)
endfunction()
