#!/bin/sh
# The files of the Debian package, the command run from the unpacked package, and the completion as
# Debian's zsh finds it.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

fresh_folder
make_package "$BUILD"
unpack_package

expect_tree "$Root/usr" 's|zsh/site-functions|zsh/vendor-completions|' "tree-$Kind.txt" \
  tree-command.txt

echo "trrule $VERSION" >"$Folder/version.txt"
run_and_compare "$Root/usr/bin/trrule" "$Folder/version.txt" --version
check_linkage "$Root/usr/bin/trrule"

command -v zsh >/dev/null || skip "zsh is not installed: its completion was not tried"
Completions=/usr/share/zsh/vendor-completions
# shellcheck disable=SC2016  # for zsh
zsh -f -c 'print -l $fpath' | grep -qx "$Completions" || skip "this zsh is not Debian's"
# With the unpacked folder instead of the one for packages, the completion works without any settings.
cat >"$Folder/complete.zsh" <<'END'
fpath=("${(@)fpath/#%$1/$2}")
autoload -Uz compinit
compinit -D -u
print $_comps[trrule]
autoload -Uz +X _trrule
END
echo _trrule >"$Folder/known.txt"
run_and_compare zsh "$Folder/known.txt" -f "$Folder/complete.zsh" "$Completions" "$Root$Completions"
