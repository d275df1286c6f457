#!/usr/bin/env bash
# Quick start for a fresh Debian 12 machine.
#   ./tolvad.sh run    install what is missing, build, open the editor on a bundled example
#                      (with no display: the command-line tool summarises it)
#   ./tolvad.sh test   install what is missing, build everything, run the whole test suite
#   ./tolvad.sh fuzz   build the libFuzzer target with clang (build-fuzz) and run it briefly
#                      on the examples (TOLVAD_FUZZ_SECONDS, default 20)
set -euo pipefail
cd "$(dirname "$0")"

# locales: the definitions from which the number tests build a comma-decimal locale.
# libcli11-dev, nlohmann-json3-dev: the command line and the JSON of tolvad-dsc.
PACKAGES=(build-essential cmake ninja-build pkg-config qt6-base-dev qt6-base-dev-tools
          libgl-dev libgtest-dev libgmock-dev libbenchmark-dev clang libclang-rt-14-dev locales
          libcli11-dev nlohmann-json3-dev)
BUILD=${TOLVAD_BUILD_DIR:-build}
EXAMPLE=examples/survey-time-domain.DSC

install_missing() {
  local missing=()
  for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local sudo=()
  [ "$(id -u)" -eq 0 ] || sudo=(sudo)
  echo "Installing: ${missing[*]}"
  "${sudo[@]}" apt-get update
  DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
}

configure_and_build() {
  cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
  cmake --build "$BUILD" -j "$(nproc)"
}

case "${1:-}" in
  run)
    install_missing
    configure_and_build
    if [ -x "$BUILD/tools/tolvad" ] && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
      exec "$BUILD/tools/tolvad" "$EXAMPLE"
    elif [ -x "$BUILD/tools/tolvad-dsc" ]; then
      if [ -x "$BUILD/tools/tolvad" ]; then
        echo "No display: summarising $EXAMPLE with the command-line tool."
      else
        echo "The editor is not built (no Qt): summarising $EXAMPLE with the command-line tool."
      fi
      exec "$BUILD/tools/tolvad-dsc" info "$EXAMPLE"
    else
      echo "Built the core and its tests. The editor and the command-line tool tolvad-dsc come with the descriptor model; nothing to run yet."
    fi
    ;;
  test)
    install_missing
    configure_and_build
    cd "$BUILD"
    QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)"
    ;;
  fuzz)
    install_missing
    BUILD=${TOLVAD_FUZZ_BUILD_DIR:-build-fuzz}
    CXX=clang++ CC=clang configure_and_build -DTOLVAD_FUZZ=ON -DTOLVAD_GUI=OFF \
      -DTOLVAD_TESTS=OFF -DTOLVAD_BENCH=OFF
    corpus=$(mktemp -d)
    trap 'rm -rf "$corpus"' EXIT
    cp examples/*.DSC "$corpus"/
    # A few bytes may declare millions of channels; the work that follows is
    # linear but takes tens of seconds under the fuzzer's instrumentation, so
    # the limits leave room for it and still catch a loop that never ends.
    "$BUILD/fuzz/tolvad_fuzz_desc" -max_total_time="${TOLVAD_FUZZ_SECONDS:-20}" \
      -rss_limit_mb=6144 -timeout=120 "$corpus"
    ;;
  *)
    echo "usage: $0 run|test|fuzz" >&2
    exit 64
    ;;
esac
