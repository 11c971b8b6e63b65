#!/bin/sh
# The Debian package: makes it, installs it on this machine, runs the driver and a program built
# with the library, removes it again and looks for what it left behind.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

for Tool in dpkg dpkg-deb dpkg-query; do
  command -v "$Tool" >/dev/null || skip "there is no $Tool on this machine"
done
[ "$(id -u)" -eq 0 ] || skip "only root may install a package"
if dpkg-query --status trrule >/dev/null 2>&1; then
  skip "a package trrule is installed already, and the test would remove it"
fi

# An untidy end must not leave the package on the machine.
remove_package() {
  if dpkg-query --status trrule >/dev/null 2>&1; then
    dpkg --purge trrule >/dev/null
  fi
}

fresh_folder
trap 'remove_package; rm -rf "$Folder"' EXIT

Cpack=$(dirname "$CMAKE")/cpack
"$Cpack" --config "$Built/CPackConfig.cmake" -G DEB -B "$Folder"
set -- "$Folder/trrule_${VERSION}_"*.deb
[ -e "$1" ] || fail "no package was made"
Package=$1

dpkg-deb --contents "$Package"
dpkg-deb --fsys-tarfile "$Package" | tar -t | sed -e 's|^\.||' -e 's|/$||' >"$Folder/paths.txt"

if ! dpkg --install "$Package" >"$Folder/dpkg.txt" 2>&1; then
  cat "$Folder/dpkg.txt"
  ! grep -q 'lock' "$Folder/dpkg.txt" || skip "another program is installing packages just now"
  fail "the package cannot be installed"
fi
run_and_compare /usr/bin/trrule-demo "$SOURCE/tests/data/driver_output.txt"
check_linkage /usr/bin/trrule-demo
[ "$(stat -c %a /usr/include/trrule)" = 755 ] || fail "not everyone may read the headers"

"$CMAKE" -S "$Here/consumer/find_package" -B "$Folder/build" -G "$GENERATOR" \
  -DWANTED="$SOVERSION"
"$CMAKE" --build "$Folder/build"
run_consumers "$Folder/build"

dpkg --purge trrule
# Folders may belong to other packages as well; those of our name and all files have to be gone.
while read -r Path; do
  case $Path in
    *trrule* | *TrRule*)
      if [ -e "$Path" ] || [ -h "$Path" ]; then fail "$Path was left behind"; fi
      ;;
  esac
done <"$Folder/paths.txt"
