#!/bin/sh
# The command over files of rules, as the tests' own build installs it: all that comes with it, by
# name, and the command run from where it was put.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
"$CMAKE" --install "$BUILD" --prefix "$Folder/prefix" >/dev/null

(cd "$Folder/prefix" && find . ! -type d ! -path './share/doc/*' | LC_ALL=C sort) >"$Folder/tree.txt"
sed -e "s/@VERSION@/$VERSION/" -e "s/@SOVERSION@/$SOVERSION/" "$Here/expected/tree-$Kind.txt" \
  "$Here/expected/tree-command.txt" | LC_ALL=C sort >"$Folder/expected.txt"
compare "$Folder/expected.txt" "$Folder/tree.txt"

echo "trrule $VERSION" >"$Folder/version.txt"
"$Folder/prefix/bin/trrule" --version >"$Folder/out.txt" || fail "trrule ended with status $?"
compare "$Folder/version.txt" "$Folder/out.txt"
check_linkage "$Folder/prefix/bin/trrule"
