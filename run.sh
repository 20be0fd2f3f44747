#!/usr/bin/env bash
# Builds MeasureTools and starts it with FILE, a picture or a project, or with the sample.
# Without a display it prints the values of the project and writes the picture with the objects drawn in.
set -euo pipefail

usage="Usage: ./run.sh [FILE]"
case "${1-}" in
-h | --help) echo "$usage" && exit 0 ;;
-*) echo "$usage" >&2 && exit 2 ;;
esac
[ $# -le 1 ] || { echo "$usage" >&2 && exit 2; }

file=${1:+$(realpath -m -- "$1")} # named from the folder that the user stands in
# shellcheck source=scripts/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/scripts/common.sh"

samples=resources/samples
program=build/release/bin/measuretools

# report FILE: what can be told of it without a window.
report() {
    local name picture
    name=$(basename "$1")
    picture=build/${name%.*}.png
    export QT_QPA_PLATFORM=offscreen
    case "$name" in
    *.mtp) "$program" --values "$1" ;;
    esac
    "$program" --render "$1" "$picture"
    echo "There is no display; the picture is in $project_root/$picture" >&2
}

needed=(build)
if [ -n "${WAYLAND_DISPLAY-}" ] && [ -z "${DISPLAY-}" ]; then needed+=(wayland); fi
install_missing "${needed[@]}"
configure release
build release measuretools MeasureToolsPlugin
if [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ]; then
    exec "$program" "${file:-$samples/workbench.png}"
fi
report "${file:-$samples/sample.mtp}"
