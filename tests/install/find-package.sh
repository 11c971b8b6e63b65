#!/bin/sh
# Programs of another project that find the installed library with find_package.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
install_into "$Folder/prefix"
"$CMAKE" -S "$Here/consumer/find_package" -B "$Folder/build" -G "$GENERATOR" \
  -DCMAKE_PREFIX_PATH="$Folder/prefix" -DWANTED="$SOVERSION"
"$CMAKE" --build "$Folder/build"
run_consumers "$Folder/build"
