#!/usr/bin/env bash
# Pictures of the editor, rendered offscreen:
#   tools/screenshots.sh OUT_DIR
# Run from the repository root after a build; the build is taken from build/ or
# from $TOLVAD_BUILD_DIR, as tolvad.sh does. Every card of every orientation of
# every example goes to OUT_DIR/EXAMPLE-CARD-ORIENTATION.png (EXAMPLE the file
# name without .DSC, CARD the card's title in lower case with dashes).
set -euo pipefail
if [ $# -ne 1 ]; then
  echo "usage: $0 OUT_DIR" >&2
  exit 64
fi
OUT=$(realpath -m "$1")
cd "$(dirname "$0")/.."
BUILD=${TOLVAD_BUILD_DIR:-build}
RENDERER="$BUILD/tools/tolvad-cardshots"
if [ ! -x "$RENDERER" ]; then
  echo "$RENDERER is missing: build first (./tolvad.sh test, or cmake --build $BUILD)" >&2
  exit 1
fi
mkdir -p "$OUT"
QT_QPA_PLATFORM=offscreen "$RENDERER" "$OUT" examples/*.DSC
