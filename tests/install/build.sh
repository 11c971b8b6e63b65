#!/bin/sh
# Builds the library and the driver, once for all tests of a kind. The command takes the longest and is
# not built again: command.sh installs the one of the build of the tests.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

rm -rf "$Built"
"$CMAKE" -S "$SOURCE" -B "$Built" -G "$GENERATOR" -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_INSTALL_PREFIX=/nowhere -DCMAKE_INSTALL_LIBDIR=lib \
  -DCMAKE_CXX_FLAGS_DEBUG=-g0 -DBUILD_SHARED_LIBS="$(shared_libs)" -DTRRULE_BUILD_TOOLS=OFF \
  -DTRRULE_BUILD_TESTS=OFF -DTRRULE_BUILD_EXAMPLES=OFF -DTRRULE_BUILD_BENCHMARKS=OFF \
  -DTRRULE_BUILD_FUZZERS=OFF
"$CMAKE" --build "$Built" --parallel 2
