#!/bin/sh
# The Debian package: builds it, checks its control data, unpacks it into a folder of this test, and
# runs the driver and a program built with the library from there.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
make_package "$Built"
unpack_package

field() {
  dpkg-deb --field "$Package" "$1"
}

[ "$(field Package)" = trrule ] || fail "another name: $(field Package)"
[ "$(field Version)" = "$VERSION" ] || fail "another version: $(field Version)"
Contact=$(sed -n 's/^Upstream-Contact: //p' "$SOURCE/cmake/debian/copyright")
[ "$(field Maintainer)" = "$Contact" ] || fail "another maintainer: $(field Maintainer)"
case $(field Depends) in
  *libc6*libstdc++6*) ;;
  *) fail "depends on $(field Depends)" ;;
esac

compare "$SOURCE/cmake/debian/copyright" "$Root/usr/share/doc/trrule/copyright"
# The path of the licence text that both name.
[ ! -d /usr/share/common-licenses ] || [ -e /usr/share/common-licenses/Apache-2.0 ] ||
  fail "the text of the licence is not where the copyright file says"

# Everyone may read the files of the package, and only root may change them, whatever the umask was.
find "$Root" -mindepth 1 ! -type l \( ! -perm -444 -o -perm /022 \) >"$Folder/modes.txt"
compare /dev/null "$Folder/modes.txt"

run_and_compare "$Root/usr/bin/trrule-demo" "$SOURCE/tests/data/driver_output.txt"
check_linkage "$Root/usr/bin/trrule-demo"

"$CMAKE" -S "$Here/consumer/find_package" -B "$Folder/build" -G "$GENERATOR" \
  -DCMAKE_PREFIX_PATH="$Root/usr" -DWANTED="$SOVERSION"
"$CMAKE" --build "$Folder/build"
run_consumers "$Folder/build"
