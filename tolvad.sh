#!/usr/bin/env bash
# Quick start for a fresh Debian 12 machine.
#   ./tolvad.sh run    install what is missing, build, open the editor on a bundled example
#                      (with no display: the command-line tool summarises it)
#   ./tolvad.sh test   install what is missing, build everything, run the whole test suite
set -euo pipefail
cd "$(dirname "$0")"

PACKAGES=(build-essential cmake ninja-build pkg-config qt6-base-dev qt6-base-dev-tools
          libgl-dev libgtest-dev libgmock-dev libbenchmark-dev clang libclang-rt-14-dev)
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
      echo "No display: summarising $EXAMPLE with the command-line tool."
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
  *)
    echo "usage: $0 run|test" >&2
    exit 64
    ;;
esac
