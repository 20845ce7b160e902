# Sourced by the other scripts: installs the system's packages and builds presets.
#
#   need LIST
#
# installs the missing packages of packages_LIST on Debian and Ubuntu, as root or through sudo;
# elsewhere it lists the packages and stops if CMake, Ninja or a compiler is missing.

packages_build="g++ cmake ninja-build qt6-base-dev libgl1-mesa-dev fonts-dejavu-core
  libutf8proc-dev libcli11-dev nlohmann-json3-dev"
packages_test="$packages_build libgtest-dev python3 python3-jsonschema strace"
packages_check="$packages_test clang clang-format clang-tidy libclang-rt-dev"
packages_browser="$packages_build chromium chromium-driver python3"
packages_lint="$packages_test clang clang-tidy g++-mingw-w64-x86-64 googletest"
packages_fuzz="$packages_test clang libclang-rt-dev libexpat1-dev"
packages_faults="$packages_test"
packages_benchmark="$packages_test libbenchmark-dev"
packages_roots="debootstrap debian-archive-keyring git util-linux"
packages_package="$packages_build dpkg-dev debhelper file desktop-file-utils appstream lintian"
packages_release="git zip diffoscope-minimal"
packages_windows="cmake ninja-build libcli11-dev nlohmann-json3-dev g++-mingw-w64-x86-64
  g++-mingw-w64-i686 googletest wine wine64 xvfb xauth zip fonts-wine"

name_packages() {
  cat >&2 <<'END'
This script installs packages on Debian and Ubuntu only. Please install the packages listed here for
your system, and run it again:
  Fedora:    gcc-c++ cmake ninja-build qt6-qtbase-devel utf8proc-devel cli11-devel json-devel
             gtest-devel python3-jsonschema strace dejavu-sans-fonts
             clang clang-tools-extra expat-devel (for the checks), google-benchmark-devel (to measure)
  Arch:      gcc cmake ninja qt6-base libutf8proc cli11 nlohmann-json gtest python-jsonschema strace
             ttf-dejavu
             clang expat (for the checks), benchmark (to measure)
END
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "Please run as root: $*" >&2
    return 1
  fi
}

installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

need() {
  local list="packages_$1" missing=() package tool
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    for tool in cmake ninja c++; do
      command -v "$tool" >/dev/null || { name_packages; return 1; }
    done
    return 0
  fi
  local compiler=
  [[ ${CXX:-} != *clang* ]] || compiler=clang
  for package in ${!list} $compiler; do
    installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -qq -y --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET [ARGUMENT...]: configures a preset and builds it, with progress on a terminal only.
# Configures every time, because a library may have been installed since, and removes the folder of a
# failed configuration, whose cache would keep its choices.
build() {
  local preset=$1 log quiet=()
  shift
  log=$(mktemp)
  cmake --preset "$preset" >"$log" 2>&1 || { cat "$log"; rm -rf "$log" "build/$preset"; return 1; }
  grep -i -A3 warning "$log" || true
  rm "$log"
  # Ninja on Ubuntu 22.04 lacks this option.
  if ! [ -t 1 ] && ninja --help 2>&1 | grep -q -e --quiet; then quiet=(-- --quiet); fi
  cmake --build --preset "$preset" "$@" "${quiet[@]}"
}
