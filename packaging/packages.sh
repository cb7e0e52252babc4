# The Debian 12 packages that this project needs, in one place: sourced by ./run and ./test.
# docs/dependencies.md says what each library is for.

build_packages="g++ cmake ninja-build pkg-config
  libicu-dev libsqlite3-dev libfontconfig-dev libharfbuzz-dev libfribidi-dev libdeflate-dev libxlsxwriter-dev
  libpng-dev libturbojpeg0-dev
  libxcb1-dev libxcb-ewmh-dev libxcb-icccm4-dev libtomlplusplus-dev nlohmann-json3-dev libcli11-dev
  libcups2-dev
  qt6-base-dev qt6-svg-dev"

# What stands on pages: the faces of the house style, and those that every machine has.
run_packages="fonts-noto-core fonts-noto-ui-core fonts-dejavu-core fonts-dejavu-extra"

# Configuring needs these also where no test is built.
test_build_packages="libgtest-dev libgmock-dev"
test_packages="poppler-utils qpdf mupdf-tools sqlite3 python3 python3-openpyxl xvfb xauth openbox xterm x11-utils xdotool
  cups-daemon cups-client cups-ipp-utils cups-filters dbus-daemon"

# install_missing PACKAGE... installs those that are not there yet; quiet, and does nothing when all are.
install_missing() {
    missing=
    for package in "$@"; do
        case "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" in
            "install ok installed") ;;
            *) missing="$missing $package" ;;
        esac
    done
    [ -n "$missing" ] || return 0

    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing, and neither root nor sudo is here to install them:$missing" >&2
            return 1
        fi
        as_root=sudo
    fi
    echo "Installing:$missing"
    if run_quietly $as_root apt-get update -q &&
        run_quietly $as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends $missing; then
        return 0
    fi
    echo "The packages could not be installed (see above)." >&2
    return 1
}

# build_tree PRESET [TARGET...] configures and builds a preset; says nothing but what goes wrong, unless a
# terminal watches. A build folder that was made at another place (a copied checkout) is configured afresh.
build_tree() {
    case "$1" in
        release) tree=build ;;
        *) tree="build-$1" ;;
    esac
    preset=$1
    shift
    cache="$tree/CMakeCache.txt"
    if [ -f "$cache" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
        rm -rf "$tree"
    fi
    run_quietly cmake --preset "$preset" || return 1
    if [ -t 1 ]; then
        cmake --build "$tree" ${*:+--target "$@"}
    else
        run_quietly cmake --build "$tree" ${*:+--target "$@"}
    fi
}

# run_quietly COMMAND... shows what a command says only when it fails.
run_quietly() {
    quiet_log=$(mktemp)
    quiet_status=0
    "$@" </dev/null >"$quiet_log" 2>&1 || quiet_status=$?
    [ "$quiet_status" -eq 0 ] || cat "$quiet_log" >&2
    rm -f "$quiet_log"
    return "$quiet_status"
}
