# shellcheck shell=sh disable=SC2154  # Logs is set by steps.sh
# Sourced by script/check for --long: the checks that take too long for every commit.
# docs/assurance.md describes the purpose of each step.

want_long_tools() {
  want python3 have_command python3
  want binutils have_command readelf
  want cppcheck have_command cppcheck
  want valgrind have_command valgrind
  want gcovr have_command gcovr
}

# The folders of the tools as cppcheck looks for headers in them.
tool_folders() {
  find tools -type d -printf '-I %p '
}

analyse_with_cppcheck() {
  say "Analysing src/ and tools/ with cppcheck"
  # shellcheck disable=SC2046  # each folder is a word of its own
  run cppcheck.log cppcheck --enable=all --inconclusive --std=c++17 --language=c++ --quiet \
    --error-exitcode=1 --suppressions-list=.cppcheck-suppressions -I src $(tool_folders) src tools
}

# With `sanitize-clang-all`, which has had its turn, and `coverage`, these are the tests with each
# compiler and each of two standards, with optimisation, with checked containers, and under the
# sanitizers of each compiler; the tests with threads also under the thread sanitizer.
test_other_presets() {
  for Preset in cxx20-clang assertions sanitize thread; do
    build_preset "$Preset"
    test_preset "$Preset"
  done
}

# The other tests of the development build run where their coverage is measured.
test_installation() {
  build_preset dev
  test_preset dev --label-regex install
}

# has WHAT PATTERN COMMAND...
has() {
  What=$1
  Pattern=$2
  shift 2
  "$@" | grep -q -e "$Pattern" || stop "build/bench/trrule-demo has no $What"
}

look_for_hardening() {
  say "Looking for the driver's hardening"
  Driver=build/bench/trrule-demo
  has "position-independent code" 'DYN' readelf -hW "$Driver"
  has "read-only relocations" 'GNU_RELRO' readelf -lW "$Driver"
  has "binding at its start" 'NOW' readelf -dW "$Driver"
  has "guarded stack frames" '__stack_chk_fail' readelf -W --dyn-syms "$Driver"
}

# run_in_valgrind PROGRAM EXPECTED [KINDS]: KINDS of leaked memory are errors, by default all.
run_in_valgrind() {
  Log=$Logs/valgrind-$(basename "$1").log
  valgrind --quiet --leak-check=full --show-leak-kinds="${3:-all}" \
    --errors-for-leak-kinds="${3:-all}" --error-exitcode=99 --log-file="$Log" \
    "$1" >"$Logs/valgrind.out" ||
    { cat "$Log" >&2; stop "valgrind reports errors in $1"; }
  cmp "$Logs/valgrind.out" "$2" || stop "the output of $1 differs under valgrind"
}

try_in_valgrind() {
  say "Running the driver and the examples in valgrind"
  # The driver keeps its rule, still reachable, until the process ends.
  run_in_valgrind build/bench/trrule-demo tests/data/driver_output.txt definite,indirect,possible
  for Expected in examples/expected/*.txt; do
    run_in_valgrind "build/bench/examples/$(basename "$Expected" .txt)" "$Expected"
  done
}

# Excludes what cannot be reached. Lines: the driver's message about an erasure that its script never
# reaches, and a line in the middle of a statement that only has the clean-up after an exception.
# Branches: those that only an exception takes. src/ throws none, and nothing is guaranteed when
# memory runs out. Neither count those of conditional expressions with temporary texts, some of which
# stand for the clean-up of the temporaries and are always taken in one way.
# count_coverage FOLDER LEAST_LINES LEAST_BRANCHES
count_coverage() {
  say "Measuring the coverage of $1/"
  Unreachable='.*(has been successfully deleted|" index:" << std::to_string).*'
  Temporaries='.*(\? .*("|string)|"" :|\? ""|: "").*'
  gcovr --root . --filter "$1/" -j "$Jobs" --exclude-throw-branches --exclude-unreachable-branches \
    --exclude-branches-by-pattern "$Temporaries" --exclude-lines-by-pattern "$Unreachable" \
    --txt "$Logs/coverage-$1.txt" --html-details "$Logs/coverage-$1.html" --print-summary \
    --fail-under-line "$2" --fail-under-branch "$3" build/coverage 2>"$Logs/coverage-$1.log" ||
    { cat "$Logs/coverage-$1.txt" "$Logs/coverage-$1.log" >&2; stop "the coverage of $1/ is too low"; }
}

measure_coverage() {
  build_preset coverage
  find build/coverage -name '*.gcda' -exec rm {} +
  test_preset coverage
  count_coverage src 100 95
  count_coverage tools 98 95
}

count_growth() {
  say "Measuring growth"
  script/growth
}

# break_on_purpose ARGUMENTS...
break_on_purpose() {
  say "Changing src/ on purpose: tests/mutate $*"
  tests/mutate "$@"
  say "Changing tools/ on purpose: tests/mutate --area tools $*"
  tests/mutate --area tools "$@"
}
