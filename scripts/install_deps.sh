#!/bin/sh
# Installs what building, testing and running need from the distribution's packages, and nothing that is there already;
# further packages are named as arguments. Without missing packages it neither needs rights nor a network.
set -eu

packages="
  g++ make cmake ninja-build pkg-config python3
  libicu-dev libfmt-dev libfontconfig-dev zlib1g-dev libsimpleini-dev nlohmann-json3-dev libcli11-dev
  libgtest-dev libgmock-dev libbenchmark-dev libdxflib-dev
  qt6-base-dev qt6-tools-dev libqt6opengl6-dev libgl-dev libopengl-dev qt6-qpa-plugins
  fontconfig fonts-dejavu-core fonts-noto-cjk
  $*
"

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "install_deps: this is no Debian system; install the counterparts of these packages yourself: $packages" >&2
    exit 1
fi

missing=
for package in $packages; do
    case $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) in
        installed) ;;
        *) missing="$missing $package" ;;
    esac
done
[ -n "$missing" ] || exit 0

as_root=
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "install_deps: these packages are missing, and there is neither root nor sudo to install them:$missing" >&2
        exit 1
    fi
    as_root=sudo
fi
echo "Installing:$missing"
$as_root apt-get update -q || { echo "install_deps: the package lists can't be read; is there a network?" >&2; exit 1; }
# shellcheck disable=SC2086 # one word per package
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing
