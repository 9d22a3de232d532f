# SPDX-License-Identifier: Apache-2.0
# The board: 32-bit ARM with hardware floating point, built with Debian's cross compiler and run under qemu. Host-side
# libraries come from Debian's armhf packages.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
# Nothing here was built by a compiler older than GCC 7.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
# Programs find the packages' libraries in the system itself. The cross compiler's own copy of libc is another build of
# it: a dynamic linker from there with a libc from here breaks as soon as a thread starts.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/arm-linux-gnueabihf/pkgconfig:/usr/share/pkgconfig)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
