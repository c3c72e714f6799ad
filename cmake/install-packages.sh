#!/bin/sh
# Installs those of the named Debian packages that are missing, without a prompt.
set -eu

missing=
for package in "$@"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
        missing="$missing $package"
    fi
done
[ -n "$missing" ] || exit 0

as_root=
if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || { echo "Missing packages:$missing. Install them as root, or install sudo." >&2; exit 1; }
    as_root=sudo
fi
echo "Installing$missing"
$as_root apt-get update -qq
# shellcheck disable=SC2086 # one word per package
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
