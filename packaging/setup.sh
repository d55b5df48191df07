#!/usr/bin/env bash
# Installs the packages of dependencies.txt that are missing. Sourced or run by ./run and ./test.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

command -v dpkg-query >/dev/null || {
    echo "This set-up knows Debian packages only; install what dependencies.txt lists." >&2
    exit 1
}

missing=()
while read -r package; do
    case "$package" in '' | '#'*) continue ;; esac
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
        missing+=("$package")
done <"$root/dependencies.txt"

[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "These packages are missing, and there is no sudo to install them: ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
    "${missing[@]}"
