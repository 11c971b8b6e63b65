#!/bin/sh
# All installed files, and the driver run from its installed path.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
install_into "$Folder/prefix"

expect_tree "$Folder/prefix" '' "tree-$Kind.txt"

Doc=$Folder/prefix/share/doc/trrule
for Page in "$SOURCE"/*.md "$SOURCE/LICENSE" "$SOURCE"/docs/*.md "$SOURCE"/examples/*.cpp; do
  cmp "$Page" "$Doc${Page#"$SOURCE"}" || fail "$Doc${Page#"$SOURCE"} is not in place"
done

# The files that a page links to, outside of its fenced blocks.
links_of() {
  # shellcheck disable=SC2016  # the page's own marks
  sed '/^```/,/^```/d' "$1" | grep -o ']([^)]*)' | sed -e 's/^](//' -e 's/[)#].*//' |
    grep -v -e '^$' -e '://' | LC_ALL=C sort -u
}

for Page in "$Doc"/*.md "$Doc"/docs/*.md; do
  links_of "$Page" | while read -r Target; do
    [ -e "$(dirname "$Page")/$Target" ] || echo "${Page#"$Doc/"} links to $Target"
  done
done >"$Folder/broken.txt"
compare /dev/null "$Folder/broken.txt"

run_and_compare "$Folder/prefix/bin/trrule-demo" "$SOURCE/tests/data/driver_output.txt"
check_linkage "$Folder/prefix/bin/trrule-demo"
