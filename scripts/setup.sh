#!/usr/bin/env bash
# Installs the Debian packages that building and testing need, only those that are missing.
set -euo pipefail

packages=(cmake ninja-build g++ clang libclang-rt-14-dev lld googletest libgtest-dev libgmock-dev
          libbenchmark-dev libcjson-dev libcli11-dev libpng-dev pkg-config clang-format
          chromium chromium-driver python3-selenium python3-jsonschema
          libcpp-httplib-dev libssl-dev zlib1g-dev libbrotli-dev libsqlite3-dev sqlite3)

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$p")
    fi
done

if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing missing packages: ${missing[*]}"
    sudo_cmd=""
    if [ "$(id -u)" -ne 0 ]; then sudo_cmd="sudo"; fi
    $sudo_cmd apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}"
fi
