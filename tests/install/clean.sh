#!/bin/sh
# Takes away what build.sh made.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

rm -rf "$Built"
