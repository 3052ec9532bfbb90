# The libraries this one stands on, each stated once.

find_package(PkgConfig REQUIRED)
find_package(ZLIB REQUIRED)
find_package(Threads REQUIRED)
# Entity expansion is only bounded from 2.4.0 on.
find_package(EXPAT 2.4.0 REQUIRED)
pkg_check_modules(PCRE REQUIRED IMPORTED_TARGET libpcre>=8.32)
pkg_check_modules(LIBMD REQUIRED IMPORTED_TARGET libmd)
