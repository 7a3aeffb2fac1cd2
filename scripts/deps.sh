# Sourced by scripts/run, scripts/test and scripts/test-windows: installs the Debian packages the
# build, the tests and the screenshot need, when they are missing. apt-get update runs only when
# something is missing.
RAKEYARD_PACKAGES="cmake ninja-build g++ qt6-base-dev libgl-dev libgtest-dev libgmock-dev
    nlohmann-json3-dev xvfb xauth imagemagick x11-utils xdotool python3 libxkbcommon-x11-0
    libxcb-cursor0 fonts-dejavu-core libxdamage-dev"

# What the Windows cross build and its run under Wine need besides.
RAKEYARD_WINDOWS_PACKAGES="g++-mingw-w64-x86-64-posix wine wine64 googletest"

# Installs the packages named (RAKEYARD_PACKAGES when none) that are not installed yet.
install_missing_packages() {
    local missing=()
    local package
    for package in ${*:-$RAKEYARD_PACKAGES}; do
        dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local sudo=""
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null 2>&1; then
            sudo="sudo"
        else
            echo "These packages are missing and this is not root (and there is no sudo): ${missing[*]}" >&2
            return 1
        fi
    fi
    $sudo apt-get update -q
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# Configures build/ (Ninja, RelWithDebInfo) once, then builds the targets given (all when none).
build_rakeyard() {
    local root="$1"
    shift
    if [ ! -f "$root/build/build.ninja" ]; then
        cmake -S "$root" -B "$root/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
    fi
    cmake --build "$root/build" -j "$(nproc)" ${1:+--target "$@"}
}
