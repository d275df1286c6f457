#!/usr/bin/env bash
# Renders the editor's pictures offscreen, for looking at them.
#   tools/screenshots.sh OUT_DIR
# Run from anywhere after a build; the build is in build/ or $TOLVAD_BUILD_DIR,
# as tolvad.sh makes it.
#   OUT_DIR/widgets/NAME-1x.png, NAME-2x.png   each widget family at both scales
#   OUT_DIR/EXAMPLE-CARD-ORIENTATION.png       every card of every orientation of
#                                              every example (EXAMPLE the file name
#                                              without .DSC, CARD the card's title
#                                              in lower case with dashes)
set -euo pipefail
cd "$(dirname "$0")/.."
OUT=${1:?usage: tools/screenshots.sh OUT_DIR}
BUILD=${TOLVAD_BUILD_DIR:-build}
mkdir -p "$OUT"
OUT=$(cd "$OUT" && pwd)

program() {
  local path="$BUILD/tools/$1"
  if [ ! -x "$path" ]; then
    echo "screenshots: $path is not built (./tolvad.sh test, or cmake --build $BUILD)" >&2
    exit 1
  fi
  echo "$path"
}

# render PROGRAM FOLDER: runs a renderer of the build at both scales; FOLDER
# is relative to OUT_DIR.
render() {
  local path folder="$OUT/$2"
  path=$(program "$1")
  mkdir -p "$folder"
  QT_QPA_PLATFORM=offscreen "$path" "$folder" 1x
  QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=2 "$path" "$folder" 2x
}

render tolvad-gallery widgets
QT_QPA_PLATFORM=offscreen "$(program tolvad-cardshots)" "$OUT" examples/*.DSC
