# SPDX-License-Identifier: Apache-2.0
# A small standard library instead of glibc, on this machine: Debian's musl with the C++ headers of its own compiler.
# For the command library and the C host that loads it; there is no C++ runtime on musl here.
set(CMAKE_C_COMPILER musl-gcc)
set(CMAKE_CXX_COMPILER g++)
set(cxx_headers /usr/include/c++/12 /usr/include/x86_64-linux-gnu/c++/12)
list(TRANSFORM cxx_headers PREPEND "-isystem ")
list(JOIN cxx_headers " " cxx_headers)
# Those headers ask which glibc it is, none, and know one type by another name.
set(CMAKE_CXX_FLAGS_INIT
    "-specs=/usr/lib/x86_64-linux-musl/musl-gcc.specs ${cxx_headers} '-D__GLIBC_PREREQ(major,minor)=0' -D__locale_t=locale_t")
# Nothing that CMake tries could be linked as C++.
set(CMAKE_CXX_COMPILER_WORKS TRUE)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
