#!/bin/sh
# The command as the build of the tests installs it: all installed files, and the command run from its
# installed path.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
"$CMAKE" --install "$BUILD" --prefix "$Folder/prefix" >/dev/null

expect_tree "$Folder/prefix" '' "tree-$Kind.txt" tree-command.txt

# docs/embedding.md has a row for each place, and nothing else stands anywhere.
# shellcheck disable=SC2016  # the page's own marks
sed -n '/^## Installed files/,/^## /s/^| `\([^`]*\)`.*/\1/p' "$SOURCE/docs/embedding.md" \
  >"$Folder/places.txt"
while read -r Place; do
  # shellcheck disable=SC2086  # a pattern
  ls -d "$Folder/prefix"/$Place >/dev/null || fail "docs/embedding.md names $Place"
done <"$Folder/places.txt"
(cd "$Folder/prefix" && find ./* ! -type d | cut -c 3-) | while read -r File; do
  Known=
  while read -r Place; do
    # shellcheck disable=SC2254  # a pattern
    case $File in
      $Place | ${Place%/}/*) Known=yes ;;
    esac
  done <"$Folder/places.txt"
  [ -n "$Known" ] || echo "$File"
done >"$Folder/unknown.txt"
compare /dev/null "$Folder/unknown.txt"

echo "trrule $VERSION" >"$Folder/version.txt"
run_and_compare "$Folder/prefix/bin/trrule" "$Folder/version.txt" --version
check_linkage "$Folder/prefix/bin/trrule"
