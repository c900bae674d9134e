#!/usr/bin/env bash
# Two devices of a rack start, answer each for itself, and end. Needs the release build, so .ci/run calls it.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."

exec {output}< <(exec tools/rack 2 --panel 0)
rack=$!
trap 'kill "$rack"' EXIT
read -r -t 60 line <&"$output"
[ "$line" = "ready: 2 devices, from 127.0.0.2 to 127.0.0.3" ]
build/release/bin/devicectl --root .rack/127.0.0.3 config set '{"control":{"ledMode":true}}'
[ "$(tools/rack each config get '{"control":{"ledMode":true}}' | sort)" = $'127.0.0.2  false\n127.0.0.3  true' ]
