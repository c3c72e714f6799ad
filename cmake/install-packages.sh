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
    # The word before "ok" is what is wanted of the package: a held one is installed too.
    if ! dpkg-query -W -f='${Status} ${Architecture}\n' "$package" 2>/dev/null |
        grep -Eq " ok installed ($architecture|all)$"; then
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
# Unlike the installation the update does not wait for another one by itself.
waited=0
until told=$($as_root env LC_ALL=C apt-get update -qq 2>&1); do
    case $told in
        *"Could not get lock"*) ;;
        *) echo "The package lists cannot be updated: $told" >&2; exit 1 ;;
    esac
    if [ "$waited" -ge 600 ]; then
        echo "Another program has held the package lists for 10 minutes. End it and repeat: $told" >&2
        exit 1
    fi
    [ "$waited" != 0 ] || echo "Waiting for another program that updates the package lists, at most 10 minutes"
    sleep 5
    waited=$((waited + 5))
done
[ -z "$told" ] || echo "$told" >&2
# shellcheck disable=SC2086 # one word per package
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    -o DPkg::Lock::Timeout=600 -o Dpkg::Options::=--force-confold $missing
