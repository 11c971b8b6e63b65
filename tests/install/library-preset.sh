#!/bin/sh
# Only the library, built by the commands at the top of docs/embedding.md with a compiler, CMake and
# make; then a program that uses it.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

command -v make >/dev/null || skip "make is not installed"
fresh_folder

# The build sees no other tools of this machine.
mkdir "$Folder/bin"
ln -s "$CMAKE" "$Folder/bin/cmake"
for Tool in sh uname make as ld ar ranlib nm strip objcopy objdump readelf addr2line; do
  ln -s "$(command -v "$Tool")" "$Folder/bin/$Tool"
done
ln -s "$(command -v "$CXX")" "$Folder/bin/c++"

# Only the needed files; the preset chooses the build folder.
mkdir "$Folder/source"
(cd "$SOURCE" && cp -R CMakeLists.txt CMakePresets.json cmake src docs examples LICENSE ./*.md \
  "$Folder/source")

# shellcheck disable=SC2016  # the page's own marks
sed -n '/^```console/,/^```/s/^\$ //p' "$SOURCE/docs/embedding.md" | sed '/^cmake --install/q' \
  >"$Folder/commands.sh"
grep -q '^cmake --preset library$' "$Folder/commands.sh" || fail "another preset"
(cd "$Folder/source" && env -i HOME="$Folder/home" PATH="$Folder/bin" sh -eux "$Folder/commands.sh")

"$CMAKE" -S "$Here/consumer/find_package" -B "$Folder/build" -G "$GENERATOR" \
  -DCMAKE_PREFIX_PATH="$Folder/home/.local" -DWANTED="$SOVERSION"
"$CMAKE" --build "$Folder/build"
run_and_compare "$Folder/build/consumer" "$Here/expected/consumer.txt"
check_linkage "$Folder/build/consumer"
