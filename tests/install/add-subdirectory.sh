#!/bin/sh
# Programs whose build contains the sources of the library.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
"$CMAKE" -S "$Here/consumer/add_subdirectory" -B "$Folder/build" -G "$GENERATOR" \
  -DTRRULE_SOURCE_DIR="$SOURCE" -DBUILD_SHARED_LIBS="$(shared_libs)"
"$CMAKE" --build "$Folder/build" --parallel 2
run_consumers "$Folder/build"

# Installing the program installs nothing of the library.
"$CMAKE" --install "$Folder/build" --prefix "$Folder/prefix" >/dev/null
[ ! -e "$Folder/prefix" ] || fail "the library installed itself"
