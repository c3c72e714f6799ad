# Debian's cross compiler for arm64. Libraries are Debian's own arm64 packages, which lie beside the machine's
# (multiarch); programs run in qemu's user emulation.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/qemu-aarch64)

# Nothing of the machine's own architecture: neither what was built on it nor its packages.
list(APPEND CMAKE_IGNORE_PREFIX_PATH /usr/local)
file(GLOB of_the_machine LIST_DIRECTORIES true /usr/lib/*-linux-gnu* /usr/include/*-linux-gnu* /lib/*-linux-gnu*)
list(FILTER of_the_machine EXCLUDE REGEX aarch64-linux-gnu)
list(APPEND CMAKE_IGNORE_PATH ${of_the_machine})
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig)
