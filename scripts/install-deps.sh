#!/usr/bin/env bash
# Installs the Debian packages that Orvel needs to build, run and test; does nothing when all are present.
# fonts-wqy-microhei draws the Simplified Chinese texts, in the window and in its test pictures;
# qt6-translations-l10n holds the Chinese of the texts that Qt's own widgets and dialogs show.
set -euo pipefail

packages=(
  build-essential cmake ninja-build git clang libclang-rt-14-dev
  qt6-base-dev qt6-l10n-tools qt6-tools-dev-tools qcoro-qt6-dev
  libcmark-gfm-dev libcmark-gfm-extensions-dev libpcre2-dev pkg-config
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  qt6-svg-dev libgl-dev xvfb xauth fonts-dejavu-core fonts-wqy-microhei qt6-translations-l10n ccache
  desktop-file-utils appstream gnupg openssh-client
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
