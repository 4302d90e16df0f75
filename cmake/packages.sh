# What the build, the tests and the program need, by Debian's names. Sourced by ./run, ./test and bench/run.

build_packages="g++ cmake ninja-build ccache pkg-config qt6-base-dev libgl1-mesa-dev libvulkan-dev
libxkbcommon-dev libsqlite3-dev unixodbc-dev libsodium-dev libxlsxwriter-dev zlib1g-dev fonts-inter fonts-noto-core
fonts-dejavu-core qt6-qpa-plugins qt6-declarative-dev qt6-speech-dev qt6-speech-flite-plugin"
test_packages="libgtest-dev libsqliteodbc tdsodbc poppler-utils unzip locales clang-format clang-tidy"
bench_packages="libbenchmark-dev"
windows_packages="g++-mingw-w64-x86-64-posix libz-mingw-w64-dev dpkg-dev autoconf automake libtool tcl librsvg2-bin
icoutils zip nsis"
windows_test_packages="wine64"
packaging_packages="desktop-file-utils appstream lintian mmdebstrap"

# install_missing NAME...: asks dpkg what is there and apt for the rest; on another system it names what is needed.
install_missing() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "This is no Debian system. Please install what these packages hold, then start again:" >&2
        echo "  $*" >&2
        return 0
    fi
    missing=
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    echo "Installing:$missing"
    as_root=
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "Please install as root:$missing" >&2; return 1; }
        as_root=sudo
    fi
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
        $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
