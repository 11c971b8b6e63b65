#!/bin/sh
# A checkout with converted line ends is the same, byte for byte, as one without.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

command -v git >/dev/null || skip "git is not installed"
git -C "$SOURCE" rev-parse --verify --quiet HEAD >/dev/null || skip "this is not a checkout by git"

fresh_folder
check_out() {
  git -c core.autocrlf="$1" -c core.eol="$2" clone --quiet "$SOURCE" "$Folder/$1"
  rm -rf "${Folder:?}/$1/.git"
}
check_out false lf
check_out true crlf
diff -rq "$Folder/false" "$Folder/true" || fail "line ends were converted"

# Both would also be the same if carriage returns had been lost in the commit.
Corpus=fuzz/corpus/RuleTextFuzz/carriage-returns.txt
cmp "$SOURCE/$Corpus" "$Folder/true/$Corpus" || fail "$Corpus has changed"
