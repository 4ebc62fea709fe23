#!/usr/bin/env bash
# Installs the Debian packages the build needs, when any is missing.
set -euo pipefail

packages=(
    build-essential cmake pkg-config ccache
    juce-modules-source
    libasound2-dev libfreetype-dev libfontconfig1-dev libx11-dev libxrandr-dev libxinerama-dev
    libxcursor-dev libxcomposite-dev libxext-dev libgl-dev libpng-dev libjpeg-dev zlib1g-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    xvfb xauth strace
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
