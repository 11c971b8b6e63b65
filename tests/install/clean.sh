#!/bin/sh
# Removes what build.sh built.
# shellcheck source=tests/install/common.sh
. "$SOURCE/tests/install/common.sh"

rm -rf "$Built"
