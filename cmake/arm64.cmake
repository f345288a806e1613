# To build for arm64 on another Debian: its compiler and libraries, and an emulator for the tests.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig)
# Tools that Qt runs while it builds are of this machine.
set(QT_HOST_PATH /usr)
file(GLOB host_tools "/usr/lib/*/cmake/Qt6CoreTools")
list(FILTER host_tools EXCLUDE REGEX aarch64)
cmake_path(GET host_tools PARENT_PATH QT_HOST_PATH_CMAKE_DIR)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64-static)
