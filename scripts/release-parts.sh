# Sourced by scripts/release.sh: the parts of a release. Each depends only on the sources and the time
# of their commit, never on the clock, the folder, the user or the locale.

version=$(sed -n 's/^project(Corvane VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

# The changelogs must contain this version, and the metainfo the date of its release.
check_version() {
  local file date
  date=$(sed -n "s/^## $version (\(.*\))$/\1/p" CHANGELOG.md)
  for file in "CHANGELOG.md:^## $version (" "debian/changelog:^corvane ($version)" \
    "packaging/org.corvane.Corvane.metainfo.xml.in:<release [^>]* date=\"$date\">"; do
    grep -q "${file#*:}" "${file%%:*}" ||
      { echo "${file%%:*} lacks version $version or its date" >&2; return 1; }
  done
}

# make_release FOLDER: builds all parts in FOLDER, from the clone in the working directory.
make_release() {
  local out=$1 work=$1.work
  export TZ=UTC LC_ALL=C.UTF-8 SOURCE_DATE_EPOCH
  SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
  umask 022
  mkdir -p "$out" "$work"
  git archive --prefix="corvane-$version/" HEAD | gzip -9n >"$out/corvane-$version.tar.gz"
  release_notes >"$out/RELEASE-NOTES.md"
  make_deb "$out" "$work"
  make_tarball "$out" "$work"
  make_zip windows x86_64 "$out" "$work"
  make_zip windows32 i686 "$out" "$work"
  (cd "$out" && sha256sum -- *) >"$work/SHA256SUMS"
  mv "$work/SHA256SUMS" "$out"
}

# The section of the changelog for this version.
release_notes() {
  sed -n "/^## $version /,/^## /p" CHANGELOG.md | sed '1d; /^## /d'
}

make_deb() {
  tar -C "$2" -xf "$1/corvane-$version.tar.gz"
  (cd "$2/corvane-$version" &&
    DEB_BUILD_OPTIONS="nocheck parallel=$(nproc)" dpkg-buildpackage -us -uc -d)
  cp "$2"/*.deb "$2"/*.dsc "$2"/*.tar.xz "$1"
  rm -f "$1"/*-dbgsym_*
}

# The files of the .deb in a relocatable folder.
make_tarball() {
  local name
  name=corvane-$version-linux-$(uname -m)
  dpkg-deb -x "$1"/corvane_*.deb "$2/deb"
  mv "$2/deb/usr" "$2/$name"
  rm "$2/$name"/share/doc/corvane/changelog*
  check_links "$2/$name"
  tar -C "$2" --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner \
    -c "$name" | gzip -9n >"$1/$name.tar.gz"
}

# make_zip PRESET PROCESSOR OUT WORK
make_zip() {
  local name=corvane-$version-windows-$2 build=build/$1 folder
  folder=$4/$name
  mkdir -p "$folder"
  cmake --preset "$1" -DCORVANE_TESTS=OFF
  cmake --build --preset "$1" --target corvane corvane-tool
  cp "$build/Corvane.exe" "$build/tool/corvane-tool.exe" "$folder"
  # Older versions of Notepad need CRLF.
  sed 's/$/\r/' "$build/packaging/README.md" >"$folder/README.txt"
  sed 's/$/\r/' docs/file-formats.md >"$folder/file-formats.txt"
  linked_notices | sed 's/$/\r/' >"$folder/NOTICES.txt"
  check_links "$folder"
  find "$folder" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
  (cd "$4" && find "$name" | sort | zip -qX9@ "$3/$name.zip")
}

# The licences of the libraries linked into the Windows programs, from the system's packages.
linked_notices() {
  local part
  echo "Corvane.exe and corvane-tool.exe contain parts of the following, under these terms:"
  for part in "GCC runtime libraries:gcc-mingw-w64-base" "MinGW-w64:mingw-w64-common" \
    "CLI11 (corvane-tool.exe only):libcli11-dev" "nlohmann/json (corvane-tool.exe only):nlohmann-json3-dev"; do
    printf '\n%s\n\n' "==== ${part%%:*} ===="
    cat "/usr/share/doc/${part#*:}/copyright"
  done
}

# check_links FOLDER: fails if a document contains a link to a missing file.
check_links() {
  local page link dead=0
  while IFS= read -r page; do
    while IFS= read -r link; do
      [ -e "$(dirname "$page")/${link%%#*}" ] || { echo "${page#"$1/"}: dead link $link" >&2; dead=1; }
    done < <(grep -oP '\]\(\K[^)#][^)]*' "$page")
  done < <(find "$1" -name '*.md' -o -name '*.txt' -o -name '*.html')
  return $dead
}
