# Sourced by the other scripts: puts the system's packages in place.
#
#   need build|test|package|check
#
# installs what is missing on Debian and Ubuntu, as root or through sudo; elsewhere it names the
# packages and stops when a tool that is needed is not there.

packages_build="g++ cmake ninja-build qt6-base-dev fonts-dejavu-core"
packages_test="$packages_build libgtest-dev"
packages_package="$packages_build dpkg-dev desktop-file-utils appstream lintian file"
packages_check="$packages_test clang clang-format clang-tidy libclang-rt-dev"

name_packages() {
  cat >&2 <<'END'
This system's package manager is not one that this script installs with. Please install:
  Fedora:    gcc-c++ cmake ninja-build qt6-qtbase-devel gtest-devel clang clang-tools-extra dejavu-sans-fonts
  Arch:      gcc cmake ninja qt6-base gtest clang ttf-dejavu
  Homebrew:  cmake ninja qt googletest llvm
END
}

install_missing() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please install as root: ${missing[*]}" >&2; return 1; }
    root=(sudo)
  fi
  echo "Installing ${missing[*]}"
  "${root[@]}" apt-get update -q >/dev/null
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends \
    "${missing[@]}" >/dev/null
}

need() {
  local list="packages_$1" tool
  if command -v apt-get >/dev/null && command -v dpkg-query >/dev/null; then
    # shellcheck disable=SC2086 # one word a package
    install_missing ${!list}
    return
  fi
  for tool in cmake ninja c++; do
    command -v "$tool" >/dev/null || { name_packages; return 1; }
  done
}

# Configures a preset once and builds it; Ninja configures again by itself where it has to.
build() {
  local preset=$1
  shift
  [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >"build-$preset.log" 2>&1 ||
    { cat "build-$preset.log"; rm -rf "build-$preset.log" "build/$preset"; return 1; }
  rm -f "build-$preset.log"
  cmake --build --preset "$preset" "$@"
}
