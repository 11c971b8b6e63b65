#!/bin/sh
# Programs without a build system that find the installed library with pkg-config.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

[ -n "$PKG_CONFIG" ] || skip "pkg-config is not installed"
fresh_folder
install_into "$Folder/prefix"
export PKG_CONFIG_PATH="$Folder/prefix/lib/pkgconfig"
[ "$("$PKG_CONFIG" --modversion trrule)" = "$VERSION" ] || fail "another version"
Flags=$("$PKG_CONFIG" --cflags --libs trrule)
# shellcheck disable=SC2086  # a list of arguments
"$CXX" -std=c++17 "$Here/consumer/Consumer.cpp" -o "$Folder/consumer" $Flags
# shellcheck disable=SC2086
"$CXX" -std=c++17 "$Here/consumer/EarlyUse.cpp" -o "$Folder/early-use" $Flags
[ "$Kind" = static ] || export LD_LIBRARY_PATH="$Folder/prefix/lib"
run_consumers "$Folder"
