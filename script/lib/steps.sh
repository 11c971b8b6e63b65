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

# show_done DONE ALL: at a terminal on one line that is written over, elsewhere a line for each fifth.
show_done() {
  if [ -t 2 ]; then
    printf '\r   %s of %s' "$1" "$2" >&2
  elif [ $(($1 * 5 / $2)) -gt "$Fifths" ]; then
    Fifths=$(($1 * 5 / $2))
    printf '   %s of %s\n' "$1" "$2" >&2
  fi
}

# Reads what Ninja ("[3/80] Building"), CTest ("3/80 Test") or apt-get prints and shows how far it
# has come. Of a package apt-get names three steps: fetched, unpacked, set up.
show_progress() {
  Fifths=0
  Done=0
  All=0
  Pair=
  while read -r Line; do
    case $Line in
      '['[0-9]*/[0-9]*'] '*) Pair=${Line%%']'*} Pair=${Pair#'['} ;;
      [0-9]*/[0-9]*' Test '*) Pair=${Line%% *} ;;
      *' newly installed, '*)
        All=${Line%% newly installed,*}
        All=$((${All##* } * 3))
        continue
        ;;
      'Need to get '*) printf '   %s\n' "$Line" >&2; continue ;;
      Get:* | 'Unpacking '* | 'Setting up '*) Done=$((Done + 1)) Pair=$Done/$All ;;
      *) continue ;;
    esac
    case $Pair in
      *[!0-9/]* | */0) ;;
      *) show_done "${Pair%/*}" "${Pair#*/}" ;;
    esac
  done
  [ ! -t 2 ] || [ -z "$Pair" ] || echo >&2
}

# keep_and_show LOG COMMAND... keeps what a long command prints in build/log/LOG, shows how far it
# has come, and gives its status.
keep_and_show() {
  Log=$Logs/$1
  shift
  rm -f "$Log.status"
  { "$@" 2>&1 || echo $? >"$Log.status"; } | tee "$Log" | show_progress
  [ ! -e "$Log.status" ] || return "$(cat "$Log.status")"
}

# The same for a command that must not fail: if it does, its output is shown.
run_long() {
  if ! keep_and_show "$@"; then
    cat "$Log" >&2
    shift
    stop "failed: $*"
  fi
}

# build_preset PRESET [TARGET...]
build_preset() {
  Preset=$1
  shift
  say "Building the $Preset preset in build/$Preset"
  run "configure-$Preset.log" cmake --preset "$Preset"
  run_long "build-$Preset.log" cmake --build --preset "$Preset" --parallel "$Jobs" \
    ${1:+--target "$@"}
}

# The line in which ctest counted the tests of a preset.
count_of_tests() {
  grep '% tests passed, ' "$Logs/test-$1.log"
}

# Runs the tests of a preset that has been built, names those that were skipped and why, and ends
# with the count.
test_preset() {
  say "Running the tests of the $1 preset"
  if ! keep_and_show "test-$1.log" ctest --preset "$1" --parallel "$Jobs"; then
    grep -v -e ' Start ' -e ' Passed ' "$Log" >&2
    stop "failed: ctest --preset $1"
  fi
  sed -n 's/^SKIPPED: /skipped: /p' "build/$1/Testing/Temporary/LastTest.log"
  count_of_tests "$1"
}
