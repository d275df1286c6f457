#!/usr/bin/env bash
# Renders the editor's pictures offscreen at 1x and 2x, for looking at them.
#   tools/screenshots.sh OUT_DIR
# Run from anywhere after a build; the build is in build/ or $TOLVAD_BUILD_DIR,
# as tolvad.sh makes it. Each renderer writes NAME-1x.png and NAME-2x.png into
# its folder under OUT_DIR.
set -euo pipefail
cd "$(dirname "$0")/.."
OUT=${1:?usage: tools/screenshots.sh OUT_DIR}
BUILD=${TOLVAD_BUILD_DIR:-build}
mkdir -p "$OUT"
OUT=$(cd "$OUT" && pwd)

# render PROGRAM FOLDER: runs a renderer of the build at both scales; FOLDER
# is relative to OUT_DIR ("." for OUT_DIR itself).
render() {
  local program="$BUILD/tools/$1" folder="$OUT/$2"
  if [ ! -x "$program" ]; then
    echo "screenshots: $program is not built" >&2
    exit 1
  fi
  mkdir -p "$folder"
  QT_QPA_PLATFORM=offscreen "$program" "$folder" 1x
  QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=2 "$program" "$folder" 2x
}

render tolvad-gallery widgets
