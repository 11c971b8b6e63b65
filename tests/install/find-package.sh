#!/bin/sh
# A program of another project that takes the installed library by find_package.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
install_into "$Folder/prefix"
"$CMAKE" -S "$Here/consumer/find_package" -B "$Folder/build" -G "$GENERATOR" \
  -DCMAKE_PREFIX_PATH="$Folder/prefix" -DWANTED="$SOVERSION"
"$CMAKE" --build "$Folder/build"
run_and_compare "$Folder/build/consumer" "$Here/expected/consumer.txt"
check_linkage "$Folder/build/consumer"
