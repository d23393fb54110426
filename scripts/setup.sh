#!/usr/bin/env bash
# Installs from Debian's packages whatever building and testing needs, and builds the libraries that Debian does not
# package for Windows. Costs nothing when everything is there.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

packages=(
  g++ cmake ninja-build ccache pkg-config          # native build
  libpcre2-dev libcli11-dev nlohmann-json3-dev     # libraries
  libsodium-dev autoconf automake libtool          # library for encryption under a password, and what it is configured with
  libxlsxwriter-dev libpugixml-dev libminizip-dev zlib1g-dev libz-mingw-w64-dev  # libraries for sheets
  libsqlite3-dev tcl unixodbc-dev                  # libraries for databases; tcl makes the one source file of SQLite
  libgtest-dev libgmock-dev googletest libssl-dev  # tests
  python3-openpyxl python3-vobject gnumeric sqlite3  # other readers and writers, for tests
  libez-vcard-java libvinnie-java                  # one more, used where a JDK is installed
  libodbc2 odbcinst libsqliteodbc odbc-postgresql odbc-mdbtools postgresql  # databases behind ODBC, for tests
  clang-format clang-tidy-16 python3 git           # checks
  g++-mingw-w64-x86-64-posix dpkg-dev              # Windows build
  g++-mingw-w64-i686-posix                         # the 32-bit companion
  wine wine64 xvfb xdotool x11-utils openbox imagemagick locales fonts-wqy-microhei fonts-wine  # window tests
  liberfa1                                         # the maker of the calendar's table, and its test
  mawk time                                        # benchmarks
  unicode-data rime-data-pinyin-simp               # what generated tables are made of
)

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f '${Status}\n' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq -o DPkg::Lock::Timeout=300 --no-install-recommends "${missing[@]}" >/dev/null
fi

if ! locale -a | grep -qi '^zh_CN\.utf-\?8$'; then
  echo 'generating the locale zh_CN.UTF-8'
  grep -q '^zh_CN.UTF-8 UTF-8' /etc/locale.gen 2>/dev/null || echo 'zh_CN.UTF-8 UTF-8' | as_root tee -a /etc/locale.gen >/dev/null
  as_root locale-gen >/dev/null
fi

prefix=$root/build/deps/windows
work=$root/build/deps/work
toolchain=$root/cmake/mingw-toolchain.cmake

# build_for_windows NAME SOURCE OPTION...: configures, builds and installs into the prefix.
build_for_windows() {
  local name=$1 source=$2
  shift 2
  cmake -S "$source" -B "$work/$name" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF "$@" >"$work/$name.log" 2>&1 &&
    cmake --build "$work/$name" >>"$work/$name.log" 2>&1 &&
    cmake --install "$work/$name" >>"$work/$name.log" 2>&1 || {
    tail -n 30 "$work/$name.log" >&2
    return 1
  }
}

# fetch_source PACKAGE: unpacks its source from Debian's main suite and prints the folder. It comes from the machine's own
# main suite, as a source of sources, without touching the system's lists.
fetch_source() {
  local package=$1 main_entry uri suite
  mkdir -p "$work/lists/partial" "$work/source/$package"
  main_entry=$(cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources 2>/dev/null || true)
  uri=$(grep -oE 'https?://[^ ]+/debian/?( |$)' <<<"$main_entry" | grep -v snapshot | head -n 1 | tr -d ' ')
  suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
  printf 'Types: deb-src\nURIs: %s\nSuites: %s\nComponents: main\nSigned-By: /usr/share/keyrings/debian-archive-keyring.gpg\n' \
    "$uri" "$suite" >"$work/debian.sources"
  local options=(-o "Dir::Etc::sourcelist=$work/debian.sources" -o Dir::Etc::sourceparts=/dev/null
    -o "Dir::State::lists=$work/lists" -o APT::Sandbox::User=root)
  as_root apt-get "${options[@]}" update -qq
  (cd "$work/source/$package" && as_root apt-get "${options[@]}" source -qq "$package" >/dev/null 2>&1)
  find "$work/source/$package" -mindepth 1 -maxdepth 1 -type d | head -n 1
}

if [ ! -e "$prefix/lib/libpcre2-16.a" ]; then
  echo 'building PCRE2 for Windows'
  build_for_windows pcre2 "$(fetch_source pcre2)" -DPCRE2_BUILD_PCRE2_8=OFF -DPCRE2_BUILD_PCRE2_16=ON -DPCRE2_SUPPORT_JIT=ON \
    -DPCRE2_BUILD_PCRE2GREP=OFF -DPCRE2_BUILD_TESTS=OFF -DPCRE2_SUPPORT_LIBBZ2=OFF -DPCRE2_SUPPORT_LIBZ=OFF \
    -DPCRE2_SUPPORT_LIBEDIT=OFF -DPCRE2_SUPPORT_LIBREADLINE=OFF
fi

if [ ! -e "$prefix/lib/libpugixml.a" ]; then
  echo 'building pugixml for Windows'
  build_for_windows pugixml "$(fetch_source pugixml)"
fi

# One that was built without the wide functions is built again.
if ! grep -qs fill_win32_filefunc64W "$prefix/lib/libxlsxwriter.a"; then
  echo 'building libxlsxwriter for Windows'
  source_folder=$(fetch_source libxlsxwriter)
  # It takes the wide functions of Windows for its files with the other compiler only: with this one it would know no
  # Chinese names.
  sed -i '/#ifdef __MINGW32__/,/#endif/d' "$source_folder/src/packager.c"
  sed -i '/if(MSVC)$/{N;/iowin32/s/MSVC/WIN32/}' "$source_folder/CMakeLists.txt"
  build_for_windows libxlsxwriter "$source_folder" -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a
fi

if [ ! -e "$prefix/lib/libminizip.a" ]; then
  echo 'building minizip for Windows'
  # Only what reads; it has no description that the cross compiler could follow.
  minizip=$(dirname "$(find "$(fetch_source minizip)" -name unzip.c | head -n 1)")
  mkdir -p "$work/minizip" "$prefix/include/minizip"
  for part in unzip ioapi; do
    x86_64-w64-mingw32-gcc-posix -O2 -c "$minizip/$part.c" -o "$work/minizip/$part.o"
  done
  cp "$minizip/unzip.h" "$minizip/ioapi.h" "$prefix/include/minizip/"
  x86_64-w64-mingw32-ar rcs "$prefix/lib/libminizip.a" "$work/minizip/unzip.o" "$work/minizip/ioapi.o"
fi

if [ ! -e "$prefix/lib/libgtest.a" ]; then
  echo 'building GoogleTest for Windows'
  mkdir -p "$work"
  build_for_windows googletest /usr/src/googletest -DBUILD_GMOCK=OFF
fi

if [ ! -e "$prefix/lib/libsodium.a" ]; then
  echo 'building libsodium for Windows'
  source_folder=$(fetch_source libsodium)
  mkdir -p "$work/libsodium"
  (cd "$source_folder" && autoreconf -i && cd "$work/libsodium" && "$source_folder/configure" --host=x86_64-w64-mingw32 CC=x86_64-w64-mingw32-gcc-posix \
    --prefix="$prefix" --disable-shared --disable-pie && make -j"$(nproc)" install) >"$work/libsodium.log" 2>&1 || {
    tail -n 30 "$work/libsodium.log" >&2
    exit 1
  }
fi

if [ ! -e "$prefix/lib/libsqlite3.a" ]; then
  echo 'building SQLite for Windows'
  source_folder=$(fetch_source sqlite3)
  mkdir -p "$work/sqlite3" "$prefix/lib" "$prefix/include"
  # The package holds the sources one by one; the library is made of them in one file.
  (cd "$work/sqlite3" && make -f "$source_folder/Makefile.linux-gcc" "TOP=$source_folder" sqlite3.c) >"$work/sqlite3.log" 2>&1
  x86_64-w64-mingw32-gcc-posix -O2 -DNDEBUG -DSQLITE_OMIT_LOAD_EXTENSION -DSQLITE_DQS=0 -c "$work/sqlite3/sqlite3.c" \
    -o "$work/sqlite3/sqlite3.o" >>"$work/sqlite3.log" 2>&1
  x86_64-w64-mingw32-ar rcs "$work/sqlite3/libsqlite3.a" "$work/sqlite3/sqlite3.o"
  cp "$work/sqlite3/sqlite3.h" "$prefix/include/"
  cp "$work/sqlite3/libsqlite3.a" "$prefix/lib/"
fi
