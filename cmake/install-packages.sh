#!/bin/sh
# Installs those of the named Debian packages that are missing, without a prompt. NAME:ARCHITECTURE is a package
# of another architecture, which stands beside the machine's own.
set -eu

own=$(dpkg --print-architecture)
missing=''
foreign=''
for package in "$@"; do
    case $package in
        *:*) architecture=${package#*:} ;;
        *) architecture=$own ;;
    esac
    if ! dpkg-query -W -f='${Status} ${Architecture}\n' "$package" 2>/dev/null |
        grep -Eq "install ok installed ($architecture|all)$"; then
        missing="$missing $package"
        [ "$architecture" = "$own" ] || foreign=$architecture
    fi
done
[ -n "$missing" ] || exit 0

as_root=
if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || { echo "Missing packages:$missing. Install them as root, or install sudo." >&2; exit 1; }
    as_root=sudo
fi
echo "Installing$missing"
if [ -n "$foreign" ]; then
    $as_root dpkg --add-architecture "$foreign"
fi
$as_root apt-get update -qq
# shellcheck disable=SC2086 # one word per package
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    -o DPkg::Lock::Timeout=600 -o Dpkg::Options::=--force-confold $missing
