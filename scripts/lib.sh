# SPDX-License-Identifier: GPL-2.0-or-later
# Shared by the scripts: sourced, not run. What is needed is installed, configured and built here.
# shellcheck shell=bash disable=SC2034,SC2119,SC2120  # lists and functions are for those who source this
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$top/build/release

build_packages=(cmake ninja-build g++ pkg-config libicu-dev libgdal-dev libsqlite3-dev
  libpugixml-dev libreadline-dev libcli11-dev nlohmann-json3-dev cmark-gfm libpq-dev)
qgis_packages=(qgis qgis-providers libqgis-dev qtbase5-dev libqt5svg5-dev)
web_packages=(rapidjson-dev python3)
browser_packages=(chromium firefox-esr)
package_packages=(debhelper dpkg-dev fakeroot lintian)
check_packages=(g++ clang-format clang-tidy codespell shellcheck git)
test_packages=(libgtest-dev python3 xvfb xauth xdotool openbox imagemagick x11-utils
  postgresql-15 postgresql-15-postgis-3)

# install_missing PACKAGE...: as root or through sudo; says what is missing otherwise.
install_missing() {
  local package missing=() as=()
  for package in "$@"; do
    dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  if [ "$(id -u)" -ne 0 ]; then
    if ! sudo -n true 2>/dev/null; then
      echo "${0##*/}: these Debian packages are missing: ${missing[*]}" >&2
      echo "Install them as root: apt-get install --no-install-recommends ${missing[*]}" >&2
      exit 1
    fi
    as=(sudo -n)
  fi
  echo "Installing ${missing[*]}" >&2
  "${as[@]}" apt-get -qq update >&2
  "${as[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -qq install -y --no-install-recommends "${missing[@]}" >&2
}

# configure OPTION...: the release build. Our own code compiles without a warning.
configure() {
  cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_COMPILE_WARNING_AS_ERROR=ON "$@" >&2
}

# build_targets TARGET...: all of them without one.
build_targets() {
  local target options=()
  for target in "$@"; do options+=(--target "$target"); done
  cmake --build "$build" -j "$(nproc)" "${options[@]}" >&2
}
