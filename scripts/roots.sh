# Sourced by the scripts that need another system: creates clean installations ("roots") of Debian and
# Ubuntu in build/roots with debootstrap, and runs commands in them.
#
# Packages come from DEBIAN_MIRROR and UBUNTU_MIRROR, or from the package sources of this machine.
# Everything here needs root.

roots=$PWD/build/roots

# This machine's first package source for $1 (Debian, Ubuntu).
own_mirror() {
  apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' "Origin: $1" "Label: $1" | head -1
}

# about_system debian12|debian13|ubuntu2204|ubuntu2404: sets title, suite, suites, components, mirror
# and keyring.
about_system() {
  case $1 in
    debian12) title="Debian 12" suite=bookworm ;;
    debian13) title="Debian 13" suite=trixie ;;
    ubuntu2204) title="Ubuntu 22.04" suite=jammy ;;
    ubuntu2404) title="Ubuntu 24.04" suite=noble ;;
    *) echo "Unknown system: $1" >&2; return 2 ;;
  esac
  suites="$suite $suite-updates"
  case $1 in
    debian*)
      components=main mirror=${DEBIAN_MIRROR:-$(own_mirror Debian)}
      keyring=/usr/share/keyrings/debian-archive-keyring.gpg
      ;;
    ubuntu*)
      components="main universe" mirror=${UBUNTU_MIRROR:-$(own_mirror Ubuntu)}
      keyring=/usr/share/keyrings/ubuntu-archive-keyring.gpg
      ;;
  esac
  [ -n "$mirror" ] || { echo "no package source is known; set DEBIAN_MIRROR or UBUNTU_MIRROR" >&2; return 1; }
}

# Debian 12 lacks Ubuntu's keyring; Debian 13 has it.
ubuntu_keyring() {
  local copy=$roots/ubuntu-archive-keyring.gpg
  [ -e "$keyring" ] && return 0
  if [ ! -e "$copy" ]; then
    (
      new_root debian13 keyring
      in_root keyring root apt-get install -qq -y ubuntu-keyring >/dev/null
      cp "$roots/keyring/usr/share/keyrings/ubuntu-archive-keyring.gpg" "$copy"
      remove_root keyring
    ) || return 1
  fi
  keyring=$copy
}

# bootstrap SYSTEM: creates the archive from which its roots are unpacked.
bootstrap() {
  local base=$roots/$1.base script=/usr/share/debootstrap/scripts
  about_system "$1" || return 1
  [ "${1#ubuntu}" = "$1" ] || ubuntu_keyring || return 1
  case $1 in
    debian*) script=$script/sid ;;
    ubuntu*) script=$script/gutsy ;;
  esac
  rm -rf "$base"
  # shellcheck disable=SC2086 # a list
  debootstrap --variant=minbase --keyring="$keyring" --components="${components// /,}" \
    --include=ca-certificates,sudo "$suite" "$base" "$mirror" "$script" >"$roots/$1.log" 2>&1 ||
    { tail -3 "$roots/$1.log" >&2; rm -rf "$base"; return 1; }
  rm -f "$base"/etc/apt/sources.list.d/*
  for pocket in $suites; do echo "deb $mirror $pocket $components"; done >"$base/etc/apt/sources.list"
  # An ordinary desktop user with sudo.
  chroot "$base" useradd -m -s /bin/bash modder
  echo 'modder ALL=(ALL) NOPASSWD: ALL' >"$base/etc/sudoers.d/modder"
  rm -rf "$base"/var/cache/apt/archives/*.deb
  tar -C "$base" -cf "$roots/$1.tar" .
  rm -rf "$base"
}

# new_root SYSTEM NAME: creates a clean root in build/roots/NAME.
new_root() {
  mkdir -p "$roots" "$roots/$1.packages/partial"
  [ -e "$roots/$1.tar" ] || bootstrap "$1" || return 1
  remove_root "$2"
  mkdir "$roots/$2"
  tar -C "$roots/$2" -xf "$roots/$1.tar"
  echo "$1" >"$roots/$2.system"
  in_root "$2" root apt-get update -qq
}

# The mounts of in_root last only as long as their command, so removing a root cannot reach the host.
remove_root() {
  rm -rf "${roots:?}/$1" "$roots/$1.system"
}

# in_root NAME USER COMMAND...: runs the command there, in the user's home folder. Roots of one system
# share downloaded packages. The folder $shared, if set, is mounted at the same path.
in_root() {
  local root=$roots/$1 user=$2 packages
  packages=$roots/$(cat "$root.system").packages
  shift 2
  # shellcheck disable=SC2016 # expanded inside
  shared=${shared-} unshare --mount --pid --fork --kill-child bash -euc '
    root=$1 packages=$2 user=$3; shift 3
    mount --make-rprivate /
    mount -t proc proc "$root/proc"
    mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
    mount -t devpts -o newinstance,ptmxmode=0666 devpts "$root/dev/pts"
    mount --bind "$packages" "$root/var/cache/apt/archives"
    if [ -n "${shared-}" ]; then
      mkdir -p "$root$shared"
      mount --bind "$shared" "$root$shared"
    fi
    home=$(chroot "$root" getent passwd "$user" | cut -d: -f6)
    exec chroot "$root" env -i HOME="$home" USER="$user" LOGNAME="$user" LANG=C.UTF-8 \
      PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive \
      setpriv --reuid="$user" --regid="$user" --init-groups \
      sh -c "cd; \"\$@\"; exit \$?" sh "$@"' bash "$root" "$packages" "$user" "$@"
}

# put_sources NAME USER: copies the sources of the last commit to ~/corvane.
put_sources() {
  local home=$roots/$1/home/$2
  [ "$2" != root ] || home=$roots/$1/root
  mkdir -p "$home/corvane"
  git archive HEAD | tar -C "$home/corvane" -x
  chroot "$roots/$1" chown -R "$2:$2" "${home#"$roots/$1"}/corvane"
}
