#!/usr/bin/env bash
# Installs the Debian packages the build, tests, tools and benchmarks need,
# only those that are missing. The module itself needs none of them.
set -euo pipefail
packages=(
  cmake ninja-build g++ make
  libgtest-dev libgmock-dev libbenchmark-dev
  libhowardhinnant-date-dev libhdate-dev hdate libnova-dev libicu-dev libboost-dev
  libcli11-dev nlohmann-json3-dev libpugixml-dev zlib1g-dev python3-ephem
  tzdata libical-dev
  clang libclang-rt-14-dev valgrind clang-format clang-tidy
  dpkg-dev file pkgconf scdoc gzip bash-completion man-db groff-base
  locales
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
  sudo=""
  if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
  echo "setup: installing ${missing[*]}"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
