# shellcheck shell=sh
# Sourced by the tests of this folder, which CTest starts with
#   SOURCE     the project's sources
#   BUILD      the build tree that the tests belong to
#   WORK       an empty folder of the build tree for what the tests make
#   CMAKE, CXX, GENERATOR, PKG_CONFIG, NM   the tools of the build
#   VERSION, SOVERSION   the project's version, and that of its shared object
# and the kind of library as the only argument: static or shared.
set -eu

# shellcheck disable=SC2034  # for the tests
Here=$SOURCE/tests/install
Kind=$1
Built=$WORK/library-$Kind
export CXX

# Settings of the caller must not lead a consumer to another installed copy.
unset DESTDIR CMAKE_PREFIX_PATH CPATH LIBRARY_PATH LD_LIBRARY_PATH PKG_CONFIG_PATH TrRule_DIR
unset CMAKE_BUILD_TYPE CPLUS_INCLUDE_PATH CXXFLAGS LDFLAGS

fail() {
  printf 'FAILED: %s\n' "$*" >&2
  exit 1
}

# CTest reports the test as skipped, with the reason in its output.
skip() {
  printf 'SKIPPED: %s\n' "$*"
  exit 77
}

command -v "$CXX" >/dev/null || skip "there is no $CXX on this machine"

# A folder of this test, which is removed when the test ends.
fresh_folder() {
  Folder=$(mktemp -d "$WORK/$(basename "$0" .sh)-$Kind-XXXXXX")
  trap 'rm -rf "$Folder"' EXIT
  trap 'exit 1' HUP INT TERM
}

# The library was configured for another prefix: the installed files must work where they are.
install_into() {
  "$CMAKE" --install "$Built" --prefix "$1" >/dev/null
}

shared_libs() {
  if [ "$Kind" = shared ]; then echo ON; else echo OFF; fi
}

# compare EXPECTED ACTUAL: both are files.
compare() {
  diff -u "$1" "$2" || fail "$2 is not what $1 says"
}

# run_and_compare PROGRAM EXPECTED ARGUMENTS...: status 0, nothing on standard error, the whole
# standard output.
run_and_compare() {
  Program=$1
  Expected=$2
  shift 2
  "$Program" "$@" >"$Folder/out.txt" 2>"$Folder/err.txt" ||
    fail "$Program ended with status $? and said: $(cat "$Folder/err.txt")"
  compare "$Expected" "$Folder/out.txt"
  compare /dev/null "$Folder/err.txt"
}

# run_consumers FOLDER: the programs of consumer/, which were built there.
run_consumers() {
  for Consumer in consumer early-use; do
    run_and_compare "$1/$Consumer" "$Here/expected/$Consumer.txt"
    check_linkage "$1/$Consumer"
  done
}

# expect_tree PREFIX CHANGE LIST...: the files under a prefix, except the documentation, are those of
# the lists in expected/, after a change by sed.
expect_tree() {
  Prefix=$1
  Change=$2
  shift 2
  (cd "$Prefix" && find . ! -type d ! -path './share/doc/*' | LC_ALL=C sort) >"$Folder/tree.txt"
  (cd "$Here/expected" && cat "$@") |
    sed -e "s/@VERSION@/$VERSION/" -e "s/@SOVERSION@/$SOVERSION/" -e "$Change" |
    LC_ALL=C sort >"$Folder/expected.txt"
  compare "$Folder/expected.txt" "$Folder/tree.txt"
}

# make_package BUILD: the Debian package of a build tree, in this test's folder.
make_package() {
  for Tool in dpkg dpkg-deb; do
    command -v "$Tool" >/dev/null || skip "there is no $Tool on this machine"
  done
  "$(dirname "$CMAKE")/cpack" --config "$1/CPackConfig.cmake" -G DEB -B "$Folder/package"
  set -- "$Folder/package/trrule_${VERSION}_"*.deb
  [ -e "$1" ] || fail "no package was made"
  Package=$1
}

# Nothing is installed into the system: the files of the package go under $Root instead of /.
unpack_package() {
  Root=$Folder/root
  dpkg-deb --extract "$Package" "$Root"
}

# A shared library means that the program needs the versioned shared object, a static one that it does
# not.
check_linkage() {
  Wanted=$(readelf -d "$1" | sed -n 's/.*NEEDED.*\[\(libtrrule[^]]*\)\]/\1/p')
  case $Kind in
    shared) [ "$Wanted" = "libtrrule.so.$SOVERSION" ] || fail "$1 asks for '$Wanted'" ;;
    static) [ -z "$Wanted" ] || fail "$1 asks for '$Wanted'" ;;
  esac
}
