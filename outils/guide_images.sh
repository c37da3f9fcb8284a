#!/bin/bash
# Takes the guide's pictures anew: plays the demonstration and keeps those that the guide shows.
set -eu
cd "$(dirname "$0")/.."
env -u DISPLAY -u WAYLAND_DISPLAY ./run
grep -o 'images/[a-z0-9-]*\.png' docs/guide.md | sort -u | while read -r image; do
  cp "build/demo/${image#images/}" "docs/$image"
done
