#!/usr/bin/env bash
# Runs the LV2 build step (JUCE's helper on a copy of the built library) as a build machine would:
# an empty home, no display. It must write the bundle's description, print nothing, leave no file
# of ours in the home and never reach the MIDI service.
# Usage: lv2-build-step.sh HELPER LIBRARY
set -euo pipefail
helper=$1
library=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/home" "$work/bundle"
cp "$library" "$work/bundle/"

failures=0
fail() { echo "FAILED: $*"; failures=$((failures + 1)); }

# A sanitizer's leak check cannot run under the tracer; the build itself runs the step with it.
asan_options="${ASAN_OPTIONS:-}${ASAN_OPTIONS:+:}detect_leaks=0"
status=0
env -u DISPLAY HOME="$work/home" ASAN_OPTIONS="$asan_options" strace -f -qq -o "$work/trace" -e trace=openat,open \
    "$helper" "$work/bundle/$(basename "$library")" >"$work/output" 2>&1 || status=$?

[ "$status" -eq 0 ] || fail "the helper exited with $status"
[ ! -s "$work/output" ] || fail "the helper printed: $(cat "$work/output")"
for ttl in manifest dsp ui; do
    [ -s "$work/bundle/$ttl.ttl" ] || fail "no $ttl.ttl"
done
parameters=$(grep -c "a lv2:Parameter" "$work/bundle/dsp.ttl" || true)
[ "$parameters" -eq 315 ] || fail "dsp.ttl declares $parameters parameters"

# JUCE's desktop asks the system's settings tool for a dark theme, which keeps a cache in the home;
# nothing else may appear there.
left=$(cd "$work/home" && find . -type f ! -path ./.cache/dconf/user)
[ -z "$left" ] || fail "files left in the home: $left"
[ ! -e "$work/home/DeskSettings" ] || fail "DeskSettings created"
if grep -E '"/dev/snd|alsa\.conf' "$work/trace"; then
    fail "the MIDI service was reached"
fi

[ "$failures" -eq 0 ]
