# shellcheck shell=sh
# Sourced by the scripts beside this folder: what is being done, one line for each step, and where
# the details went. Lines go to standard error; standard output belongs to what a script runs.

Logs=build/log
mkdir -p "$Logs"

Jobs=$(nproc)

say() {
  printf '== %s\n' "$*" >&2
}

stop() {
  printf '** %s\n' "$*" >&2
  exit 1
}

# run LOG COMMAND... keeps what the command prints in build/log/LOG and shows it if it fails.
run() {
  Log=$Logs/$1
  shift
  if ! "$@" >"$Log" 2>&1; then
    cat "$Log" >&2
    stop "failed: $*"
  fi
}

build_preset() {
  say "Building the $1 preset in build/$1"
  run "configure-$1.log" cmake --preset "$1"
  run "build-$1.log" cmake --build --preset "$1" --parallel "$Jobs"
}

# The line in which ctest counted the tests of a preset.
count_of_tests() {
  grep '% tests passed, ' "$Logs/test-$1.log"
}

# Runs the tests of a preset that has been built, names those that were skipped and why, and ends
# with the count.
test_preset() {
  say "Running the tests of the $1 preset"
  Log=$Logs/test-$1.log
  if ! ctest --preset "$1" --parallel "$Jobs" >"$Log" 2>&1; then
    grep -v -e ' Start ' -e ' Passed ' "$Log" >&2
    stop "failed: ctest --preset $1"
  fi
  sed -n 's/^SKIPPED: /skipped: /p' "build/$1/Testing/Temporary/LastTest.log"
  count_of_tests "$1"
}
