#!/usr/bin/env bash
# Installs the Debian packages that building, testing and the demo need,
# only those that are missing. Safe to run again and again.
set -euo pipefail

packages=(
  build-essential cmake pkg-config zlib1g-dev
  qtbase5-dev qttools5-dev-tools qttools5-dev libqt5svg5-dev
  ffmpeg libavcodec-extra mplayer
  xvfb xauth fonts-dejavu-core fonts-dejavu-extra qttranslations5-l10n
  fonts-noto-cjk fonts-noto-core
  desktop-file-utils
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then SUDO="sudo"; else
    echo "These packages are missing and I am not root: ${missing[*]}" >&2
    echo "Install them with: apt-get install ${missing[*]}" >&2
    exit 1
  fi
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
