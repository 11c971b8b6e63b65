#!/bin/sh
# All that is installed, by name, and the driver run from where it was put.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
install_into "$Folder/prefix"

(cd "$Folder/prefix" && find . ! -type d ! -path './share/doc/*' | LC_ALL=C sort) >"$Folder/tree.txt"
sed -e "s/@VERSION@/$VERSION/" -e "s/@SOVERSION@/$SOVERSION/" "$Here/expected/tree-$Kind.txt" \
  >"$Folder/expected.txt"
compare "$Folder/expected.txt" "$Folder/tree.txt"

for Page in "$SOURCE"/*.md "$SOURCE"/docs/*.md "$SOURCE"/examples/*.cpp; do
  Installed=$Folder/prefix/share/doc/trrule${Page#"$SOURCE"}
  cmp "$Page" "$Installed" || fail "$Installed is not in place"
done

run_and_compare "$Folder/prefix/bin/trrule-demo" "$SOURCE/tests/data/driver_output.txt"
check_linkage "$Folder/prefix/bin/trrule-demo"
