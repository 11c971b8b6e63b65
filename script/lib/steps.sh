# shellcheck shell=sh
# Sourced by the scripts in script/: prints one line for each step, and logs the details. Lines go to
# standard error; standard output is for the programs that a script runs.

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

# run LOG COMMAND... logs the output of the command in build/log/LOG and shows it if it fails.
run() {
  Log=$Logs/$1
  shift
  if ! "$@" >"$Log" 2>&1; then
    cat "$Log" >&2
    stop "failed: $*"
  fi
}

# show_done DONE ALL: overwrites one line on a terminal, otherwise prints a line for each fifth.
show_done() {
  if [ -t 2 ]; then
    printf '\r   %s of %s' "$1" "$2" >&2
  elif [ $(($1 * 5 / $2)) -gt "$Fifths" ]; then
    Fifths=$(($1 * 5 / $2))
    printf '   %s of %s\n' "$1" "$2" >&2
  fi
}

# Shows the progress of Ninja ("[3/80] Building"), CTest ("3/80 Test") or apt-get from their output.
# apt-get prints three steps for each package: fetched, unpacked, set up.
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

# keep_and_show LOG COMMAND... logs the output of a long command in build/log/LOG, shows its progress
# and returns its status.
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

# The line with the number of passed tests of a preset.
count_of_tests() {
  grep '% tests passed, ' "$Logs/test-$1.log"
}

# test_preset PRESET [OPTIONS...] runs the tests of a built preset, lists the skipped ones with reasons,
# and prints the count.
test_preset() {
  Preset=$1
  shift
  say "Running the tests of the $Preset preset"
  if ! keep_and_show "test-$Preset.log" ctest --preset "$Preset" --parallel "$Jobs" "$@"; then
    grep -v -e ' Start ' -e ' Passed ' "$Log" >&2
    stop "failed: ctest --preset $Preset"
  fi
  sed -n 's/^SKIPPED: /skipped: /p' "build/$Preset/Testing/Temporary/LastTest.log"
  count_of_tests "$Preset"
}
