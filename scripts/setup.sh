#!/usr/bin/env bash
# Installs from Debian's packages whatever building and testing needs, and builds the two libraries that Debian does not
# package for Windows. Costs nothing when everything is there.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

packages=(
  g++ cmake ninja-build ccache pkg-config          # native build
  libpcre2-dev libcli11-dev nlohmann-json3-dev     # libraries
  libgtest-dev libgmock-dev googletest libssl-dev  # tests
  clang-format clang-tidy-16 python3 git           # checks
  g++-mingw-w64-x86-64-posix dpkg-dev              # Windows build
  wine wine64 xvfb xdotool x11-utils openbox imagemagick locales fonts-wqy-microhei fonts-wine  # window tests
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
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
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

if [ ! -e "$prefix/lib/libpcre2-16.a" ]; then
  echo 'building PCRE2 for Windows'
  mkdir -p "$work/lists/partial"
  # The machine's own main suite, as a source of sources, without touching the system's lists.
  main_entry=$(cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources 2>/dev/null || true)
  uri=$(grep -oE 'https?://[^ ]+/debian/?( |$)' <<<"$main_entry" | grep -v snapshot | head -n 1 | tr -d ' ')
  suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
  printf 'Types: deb-src\nURIs: %s\nSuites: %s\nComponents: main\nSigned-By: /usr/share/keyrings/debian-archive-keyring.gpg\n' \
    "$uri" "$suite" >"$work/pcre2.sources"
  apt_options=(-o "Dir::Etc::sourcelist=$work/pcre2.sources" -o Dir::Etc::sourceparts=/dev/null
    -o "Dir::State::lists=$work/lists" -o APT::Sandbox::User=root)
  as_root apt-get "${apt_options[@]}" update -qq
  (cd "$work" && as_root apt-get "${apt_options[@]}" source -qq pcre2 >/dev/null 2>&1)
  source_folder=$(find "$work" -maxdepth 1 -type d -name 'pcre2-*' | head -n 1)
  build_for_windows pcre2 "$source_folder" -DPCRE2_BUILD_PCRE2_8=OFF -DPCRE2_BUILD_PCRE2_16=ON -DPCRE2_SUPPORT_JIT=ON \
    -DPCRE2_BUILD_PCRE2GREP=OFF -DPCRE2_BUILD_TESTS=OFF -DPCRE2_SUPPORT_LIBBZ2=OFF -DPCRE2_SUPPORT_LIBZ=OFF \
    -DPCRE2_SUPPORT_LIBEDIT=OFF -DPCRE2_SUPPORT_LIBREADLINE=OFF
fi

if [ ! -e "$prefix/lib/libgtest.a" ]; then
  echo 'building GoogleTest for Windows'
  mkdir -p "$work"
  build_for_windows googletest /usr/src/googletest -DBUILD_GMOCK=OFF
fi
