# Sourced by ./run and ./test: which Debian packages they need, and how they get them.

build_packages=(
    g++ cmake ninja-build ccache pkg-config
    libicu-dev libpcre2-dev libsimdjson-dev libsqlite3-dev libssl-dev libglib2.0-dev libgl-dev
    libcurl4-openssl-dev libsecret-1-dev ca-certificates
    qt6-base-dev qt6-declarative-dev qt6-declarative-dev-tools qt6-svg-dev
    qml6-module-qtqml qml6-module-qtqml-workerscript qml6-module-qtquick
    qml6-module-qtquick-window qml6-module-qtquick-layouts qml6-module-qtquick-templates
    fonts-inter
)
# The lint of the QML reads the types of one module more than the program loads.
# strace kills the program at chosen system calls, to see what becomes of a move; elfutils tells
# what a stalled one stands at.
# The third line is a desktop that nobody sees, for the program as a screen reader finds it; the
# last packs the programs, and checks what a desktop reads of them.
test_packages=(
    libgtest-dev curl python3 qml6-module-qtqml-models strace valgrind
    elfutils
    xvfb dbus-daemon at-spi2-core
    dpkg-dev desktop-file-utils appstream
)
full_packages=(clang-19 lld-19 llvm-19 libclang-rt-19-dev)

say() { printf '\n==> %s\n' "$*"; }

fail() {
    printf '\n%s\n' "$*" >&2
    exit 1
}

# install PACKAGE...: asks apt for what is missing; sudo serves for this alone.
install() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    command -v apt-get >/dev/null ||
        fail "These packages are missing, and there is no apt-get here to install them: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            fail "Please install these packages, or let me use sudo: ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing ${#missing[@]} packages: ${missing[*]}"
    local log=build/logs/apt.log
    mkdir -p build/logs
    "${as_root[@]}" apt-get update >"$log" 2>&1 ||
        printf 'The list of packages could not be renewed; going on with the one at hand.\n'
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}" >>"$log" 2>&1 || {
        tail -n 15 "$log" >&2
        fail "apt-get could not install them. The lines above are the end of $log."
    }
}

# build PRESET TARGET...: configures and builds; on a failure shows the first error alone.
build() {
    local preset=$1
    shift
    local log=build/logs/$preset.log
    mkdir -p build/logs
    export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    if ! cmake --preset "$preset" >"$log" 2>&1; then
        grep -m 1 -A 8 'CMake Error' "$log" >&2 || tail -n 15 "$log" >&2
        fail "The build could not be set up. The whole story is in $log."
    fi
    # Once more before giving up: Qt 6.4's compiler for QML crashes now and then, on nothing.
    if ! ninja -C "build/$preset" "$@" >>"$log" 2>&1 &&
        ! ninja -C "build/$preset" "$@" >"$log" 2>&1; then
        grep -m 1 -A 12 -E 'error:|Error:|FAILED' "$log" >&2
        fail "The build failed; above is its first error. The whole story is in $log."
    fi
}
