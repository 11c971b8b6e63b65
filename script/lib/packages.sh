# shellcheck shell=sh
# Sourced by the scripts in script/: installs missing packages on Debian and Ubuntu; on other systems
# lists them and stops.

Missing=
Optional=

have_command() {
  command -v "$1" >/dev/null 2>&1
}

have_header() {
  printf '#include <%s>\n' "$1" | "${CXX:-c++}" -x c++ -E - >/dev/null 2>&1
}

have_file() {
  [ -e "$1" ]
}

have_sanitizers_of_clang() {
  echo 'int main() { return 0; }' |
    clang++ -fsanitize=address -x c++ - -o /dev/null >/dev/null 2>&1
}

# want PACKAGE TEST... records the package as missing unless the test succeeds.
want() {
  Package=$1
  shift
  "$@" || Missing="$Missing $Package"
}

# The same for an optional package that not every release has.
want_if_offered() {
  Package=$1
  shift
  "$@" || Optional="$Optional $Package"
}

want_build_tools() {
  want g++ have_command "${CXX:-c++}"
  want cmake have_command cmake
  want ninja-build have_command ninja
}

# The libraries of the command; without them, the build omits it.
want_command_tools() {
  want libcli11-dev have_header CLI/CLI.hpp
  want nlohmann-json3-dev have_header nlohmann/json.hpp
  want libtbb-dev have_header tbb/parallel_pipeline.h
  want rapidjson-dev have_header rapidjson/document.h
  want libre2-dev have_header re2/re2.h
}

want_test_tools() {
  want_command_tools
  want libgtest-dev have_header gtest/gtest.h
  want libexpat1-dev have_header expat.h
  want pkg-config have_command pkg-config
  want python3 have_command python3
  want git have_command git
  # On Debian, the tests build a package with its dependencies and try it in a separate folder, with
  # the shells that it has completions for.
  if have_command dpkg; then
    want dpkg-dev have_command dpkg-shlibdeps
    want file have_command file
    want zsh have_command zsh
  fi
}

# What opens pages. The scripts for it come from the registry of npm, by the file of their sums.
want_browser_tools() {
  want chromium have_command chromium
  want nodejs have_command node
  want npm have_command npm
  want fonts-dejavu-core have_file /usr/share/fonts/truetype/dejavu/DejaVuSans.ttf
}

want_benchmark_tools() {
  want libbenchmark-dev have_header benchmark/benchmark.h
}

want_check_tools() {
  want clang have_command clang++
  want_if_offered libclang-rt-dev have_sanitizers_of_clang
  want clang-format have_command clang-format
  want clang-tidy have_command clang-tidy
  want doxygen have_command doxygen
  # The benchmarks are built with warnings as errors.
  want_benchmark_tools
  # The sanitize preset compiles GoogleTest itself.
  want googletest have_file /usr/src/googletest/CMakeLists.txt
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  else
    sudo "$@"
  fi
}

refuse() {
  stop "$1; please install these packages (Debian's names) and start again:$Missing"
}

install_missing() {
  [ -n "$Missing" ] || return 0
  have_command apt-get || refuse "This machine has no apt-get"
  [ "$(id -u)" -eq 0 ] || have_command sudo || refuse "Neither root nor sudo is available"
  say "Installing missing packages:$Missing"
  as_root true || refuse "This user may not install packages"
  run apt-update.log as_root apt-get -q update
  for Package in $Optional; do
    ! apt-cache show "$Package" >/dev/null 2>&1 || Missing="$Missing $Package"
  done
  # shellcheck disable=SC2086  # a list of words
  run_long apt-install.log as_root env LC_ALL=C DEBIAN_FRONTEND=noninteractive \
    apt-get -q -y -o DPkg::Lock::Timeout=120 --no-install-recommends install $Missing
  Missing=
}

# Installing packages does not help on a release with an older CMake.
require_cmake() {
  Version=$(cmake --version | sed -n '1s/[^0-9]*\([0-9]*\.[0-9]*\).*/\1/p')
  if [ "${Version%%.*}" -lt 3 ] || { [ "${Version%%.*}" -eq 3 ] && [ "${Version#*.}" -lt 25 ]; }; then
    stop "CMake 3.25 or later is needed, but this machine has $Version; please install a newer one"
  fi
}
