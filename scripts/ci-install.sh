#!/usr/bin/env bash
# The project as people receive it: a release build for the /usr prefix
# installed into a temporary prefix, the installed timetool run from /, its
# manual page rendered and its completion loaded in bash, examples/host built
# against the installed package from outside the tree and run, the Debian
# package built, its contents checked, and the package extracted into a
# temporary folder (never installed on this machine) and used the same way.
# Builds in build/package; everything else happens in a temporary folder.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/package
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
log="$work/log"

started=$SECONDS
step() { echo "install: $* ($((SECONDS - started))s)"; }
fail() {
  echo "install: FAILED: $*"
  exit 1
}
# Runs a command with its output kept back, shown only when it fails.
quiet() {
  "$@" >"$log" 2>&1 || {
    cat "$log"
    fail "$*"
  }
}

step "release build in $build"
# Configured for /usr, as the Debian package is, so that the library folder
# is the multiarch one; --prefix moves the trial installation elsewhere.
quiet cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCAL_BUILD_TESTS=OFF -DCAL_BUILD_BENCH=OFF \
  -DCMAKE_INSTALL_PREFIX=/usr -DCAL_REQUIRE_MAN_PAGE=ON
quiet cmake --build "$build" -j2
libdir=$(sed -n 's/^CMAKE_INSTALL_LIBDIR:PATH=//p' "$build/CMakeCache.txt")
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
# The day the manual page carries: that of the commit, in UTC, unless the
# build was given SOURCE_DATE_EPOCH; empty outside a git checkout.
if [ -n "${SOURCE_DATE_EPOCH:-}" ]; then
  commit_date=$(date -u -d "@$SOURCE_DATE_EPOCH" +%F)
else
  commit_date=$(git log -1 --format=%ct 2>/dev/null | xargs -r -I{} date -u -d @{} +%F || true)
fi
[ "$libdir" = "lib/$multiarch" ] || fail "CMAKE_INSTALL_LIBDIR is '$libdir', expected lib/$multiarch"

# Every file an installation holds, relative to its prefix.
expected_files() {
  local header doc
  echo bin/timetool
  echo "$libdir/calendar-module/_binlinux/Calendar.so"
  echo "$libdir/calendar-module/_binlinux/CollectionsEx.so"
  for header in include/*.h; do echo "include/calendar-module/${header#include/}"; done
  echo "$libdir/cmake/CalendarModule/CalendarModuleConfig.cmake"
  echo "$libdir/cmake/CalendarModule/CalendarModuleConfigVersion.cmake"
  echo "$libdir/cmake/CalendarModule/CalendarModuleTargets.cmake"
  echo "$libdir/pkgconfig/calendar-module.pc"
  echo share/man/man1/timetool.1.gz
  echo share/bash-completion/completions/timetool
  echo share/doc/calendar-module/README.md
  if [ -f COMPATIBILITY.md ]; then echo share/doc/calendar-module/COMPATIBILITY.md; fi
  while IFS= read -r doc; do echo "share/doc/calendar-module/$doc"; done < <(find docs -type f ! -name '*.scd')
  echo share/doc/calendar-module/hostkit/REGISTRY.md
  echo share/doc/calendar-module/hostkit/streams/FORMATS.md
  echo share/doc/calendar-module/examples/host/CMakeLists.txt
  echo share/doc/calendar-module/examples/host/host_example.cpp
}
expected_files | sort >"$work/expected"

same_files() {  # <what> <file listing the found files>
  if ! diff -u "$work/expected" "$2" >"$log"; then
    cat "$log"
    fail "$1 does not hold the expected files (- missing, + unexpected)"
  fi
}

# Gregorian 21 June 2024 is 8 June 2024 in the Julian calendar.
timetool_converts() {  # <timetool>
  local out
  out=$(cd / && env -u CALENDAR_MODULE_DIR "$1" convert 2024-06-21 --to julian 2>&1) || fail "$1 convert: $out"
  grep -q "8 June 2024" <<<"$out" || fail "$1 convert gave: $out"
}

# timetool from /: help, a conversion through the installed module folder,
# --version naming that folder, and the environment variable overriding it.
check_timetool() {  # <prefix>
  local prefix=$1 out status
  out=$(cd / && "$prefix/bin/timetool" --help 2>&1) || fail "$prefix/bin/timetool --help: $out"
  grep -q "Usage: timetool" <<<"$out" || fail "$prefix/bin/timetool --help gave: $out"

  timetool_converts "$prefix/bin/timetool"
  out=$(cd / && "$prefix/bin/timetool" --version 2>&1) || fail "$prefix/bin/timetool --version: $out"
  grep -qxF "module folder: $prefix/$libdir/calendar-module/_binlinux (installed tree)" <<<"$out" ||
    fail "installed timetool --version gave: $out"
  grep -qE "^timetool $version( \(commit [^)]+\))?\$" <<<"$out" || fail "installed timetool --version gave: $out"

  status=0
  out=$(cd / && CALENDAR_MODULE_DIR="$work/no-module" "$prefix/bin/timetool" convert 2024-06-21 2>&1) || status=$?
  [ "$status" -eq 1 ] || fail "installed timetool with CALENDAR_MODULE_DIR unusable: exit $status: $out"
  grep -qF "cannot load module $work/no-module/Calendar.so" <<<"$out" ||
    fail "installed timetool with CALENDAR_MODULE_DIR unusable gave: $out"

  # The installed binaries work together: timetool beside a link to the
  # installed module folder.
  mkdir -p "$work/beside"
  cp "$prefix/bin/timetool" "$work/beside/timetool"
  ln -sfn "$prefix/$libdir/calendar-module/_binlinux" "$work/beside/_binlinux"
  timetool_converts "$work/beside/timetool"
  rm -rf "$work/beside"
}

# The manual page is compressed as Debian installs manual pages (gzip -9n:
# no name or time in the header), is dated the day of the commit, renders
# without a warning and holds the grammar of --help; the completion is found
# where bash-completion looks for it and completes a command and a KIND name
# for the installed timetool.
check_manual_and_completion() {  # <prefix>
  local prefix=$1 out page=$1/share/man/man1/timetool.1.gz
  quiet gzip -t "$page"
  [ "$(od -An -tu1 -j3 -N5 "$page" | tr -s ' ')" = " 0 0 0 0 0" ] || fail "timetool.1.gz carries a name or a time"
  [ "$(od -An -tu1 -j8 -N1 "$page" | tr -d ' ')" = 2 ] || fail "timetool.1.gz is not compressed at level 9"
  if [ -n "$commit_date" ]; then
    zcat "$page" | grep -q "^\.TH \"timetool\" \"1\" \"$commit_date\"" ||
      fail "timetool.1 is not dated $commit_date: $(zcat "$page" | grep '^\.TH')"
  fi
  MANWIDTH=80 man -l "$page" >"$work/timetool.txt" 2>"$log" || fail "man -l timetool.1.gz: $(cat "$log")"
  [ ! -s "$log" ] || fail "man -l timetool.1.gz warns: $(cat "$log")"
  for text in "sd:DAYS" "0 is 1 BC, -1 is 2 BC" "CALENDAR_MODULE_DIR" "EXIT STATUS"; do
    grep -qF -- "$text" "$work/timetool.txt" || fail "the rendered manual page lacks '$text'"
  done
  out=$(XDG_DATA_DIRS="$prefix/share" bash -c 'source /usr/share/bash-completion/bash_completion &&
    __load_completion timetool && complete -p timetool' 2>&1) || fail "bash-completion does not find timetool's completion: $out"
  grep -qF "_timetool timetool" <<<"$out" || fail "bash-completion loaded: $out"
  quiet bash tests/host/timetool_docs_test.sh completion "$prefix/bin/timetool" \
    "$prefix/share/bash-completion/completions/timetool"
}

# examples/host as installed, built against the package under prefix from a
# folder outside the tree, run from /.
check_example() {  # <prefix> <build folder>
  local prefix=$1 out
  quiet cmake -S "$prefix/share/doc/calendar-module/examples/host" -B "$2" -G Ninja -DCMAKE_PREFIX_PATH="$prefix"
  quiet cmake --build "$2"
  out=$(cd / && env -u CALENDAR_MODULE_DIR "$2/host_example" 2>&1) || {
    echo "$out"
    fail "host example against $prefix"
  }
  grep -qF "module folder $prefix/$libdir/calendar-module/_binlinux" <<<"$out" ||
    fail "host example did not use the package's module folder: $out"
}

step "cmake --install into a temporary prefix"
prefix="$work/prefix"
quiet cmake --install "$build" --prefix "$prefix"
(cd "$prefix" && find . -type f | sed 's|^\./||' | sort) >"$work/installed"
same_files "the installed tree" "$work/installed"
for binary in bin/timetool "$libdir/calendar-module/_binlinux/Calendar.so" "$libdir/calendar-module/_binlinux/CollectionsEx.so"; do
  if readelf -d "$prefix/$binary" | grep -qE "RPATH|RUNPATH"; then fail "$binary carries an RPATH"; fi
done

step "installed timetool from /"
check_timetool "$prefix"

step "manual page and completion"
check_manual_and_completion "$prefix"

step "examples/host against the installed package"
check_example "$prefix" "$work/example"

step "pkg-config file"
pc_dir="$prefix/$libdir/pkgconfig"
moduledir=$(PKG_CONFIG_PATH="$pc_dir" pkg-config --variable=moduledir calendar-module)
[ "$(realpath "$moduledir")" = "$prefix/$libdir/calendar-module/_binlinux" ] || fail "moduledir is $moduledir"
cflags=$(PKG_CONFIG_PATH="$pc_dir" pkg-config --cflags calendar-module)
[ "$(PKG_CONFIG_PATH="$pc_dir" pkg-config --modversion calendar-module)" = "$version" ] ||
  fail "pkg-config version differs from the project's"
# shellcheck disable=SC2086  # the flags are words
quiet g++ -std=c++20 -fsyntax-only $cflags -DCALENDAR_MODULE_DIR="\"$moduledir\"" \
  "$prefix/share/doc/calendar-module/examples/host/host_example.cpp"

step "Debian package"
quiet cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/deb"
deb=$(find "$work/deb" -maxdepth 1 -name 'calendar-module_*_amd64.deb')
[ -n "$deb" ] || fail "cpack made no .deb"
dpkg-deb -c "$deb" | awk '$1 !~ /^d/ {print $6}' | sed 's|^\./usr/||' | sort >"$work/packaged"
same_files "the package" "$work/packaged"
grep -qxF "$libdir/calendar-module/_binlinux/Calendar.so" "$work/packaged" ||
  fail "the package's module folder is not under /usr/$libdir"
depends=$(dpkg-deb -f "$deb" Depends)
for needed in libc6 libstdc++6; do
  grep -q "$needed" <<<"$depends" || fail "Depends lacks $needed: $depends"
done

step "extracted package"
dpkg-deb -x "$deb" "$work/extracted"
check_timetool "$work/extracted/usr"
check_manual_and_completion "$work/extracted/usr"
check_example "$work/extracted/usr" "$work/example-deb"

step "all checks hold; $(basename "$deb") ($(stat -c %s "$deb") bytes), depends on $depends"
