# shellcheck shell=sh
# Sourced by the scripts: where the project is, and how they come by the tools that they need.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
missing=

# need PACKAGE COMMAND...: notes the package as missing if the command fails.
need() {
  package=$1
  shift
  "$@" >/dev/null 2>&1 || missing="$missing $package"
}

need_build_tools() {
  need cmake command -v cmake
  need ninja-build command -v ninja
  need g++ command -v c++
  need libcli11-dev test -e /usr/include/CLI/CLI.hpp
  need libedit-dev test -e /usr/include/histedit.h
}

need_test_tools() {
  need libgtest-dev test -e /usr/include/gtest/gtest.h
  need python3 command -v python3
  need pkg-config command -v pkg-config
  need mandoc command -v mandoc
  need_python_tools
  need_service_tools
  need python3-distributed test -e /usr/lib/python3/dist-packages/distributed
  need python3-pytest test -e /usr/lib/python3/dist-packages/pytest
}

# For `torvane serve`.
need_service_tools() {
  need pkg-config command -v pkg-config
  need libcpp-httplib-dev test -e /usr/include/httplib.h
  need nlohmann-json3-dev test -e /usr/include/nlohmann/json.hpp
}

# For the Python module.
need_python_tools() {
  need python3-dev sh -c 'ls /usr/include/python3*/Python.h'
  need pybind11-dev test -e /usr/include/pybind11/pybind11.h
}

# Runs a command whose output is of interest only if it fails.
quietly() {
  log=$(mktemp)
  if "$@" >"$log" 2>&1; then
    rm -f "$log"
    return
  fi
  cat "$log" >&2
  rm -f "$log"
  return 1
}

apt_install() {
  DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"
}

# Installs what is missing; where that cannot be done, names it and ends the script.
install_missing() {
  [ -z "$missing" ] && return
  if [ "$(id -u)" != 0 ] || ! command -v apt-get >/dev/null 2>&1; then
    echo "These packages are needed (the names are Debian's):$missing" >&2
    exit 1
  fi
  echo "installing:$missing" >&2
  quietly apt-get update || :
  # The list is a row of words.
  # shellcheck disable=SC2086
  quietly apt_install $missing
  missing=
}

# build PRESET [TARGET...] with the options of $configure_options.
configure_options=
build() {
  preset=$1
  shift
  # shellcheck disable=SC2086
  (cd "$root" && cmake --preset "$preset" $configure_options &&
    cmake --build --preset "$preset" ${1:+--target "$@"})
}
