# The Debian packages that each command of this folder needs, and how they are installed. Sourced, not run.

# python3-munkres stands for python3-scipy, ten times as large, on which weasyprint's fonts would else depend.
RUN_PACKAGES=(
    g++ cmake ninja-build
    qt6-base-dev qt6-svg-dev qt6-wayland coinor-libcbc-dev
    python3-markdown weasyprint python3-munkres
    fonts-dejavu-core fonts-liberation
)
# The program builds and runs without these, and then does a little less.
OPTIONAL_PACKAGES=(qt6-svg-dev coinor-libcbc-dev weasyprint python3-munkres)
TEST_PACKAGES=(
    "${RUN_PACKAGES[@]}"
    libgtest-dev libgmock-dev
    desktop-file-utils appstream shared-mime-info
    dpkg-dev lintian man-db poppler-utils locales
)
DISPLAY_PACKAGES=("${RUN_PACKAGES[@]}" xvfb openbox xdotool)
CHECK_PACKAGES=(
    "${TEST_PACKAGES[@]}"
    git clang clang-format clang-tidy lld libclang-rt-14-dev libbenchmark-dev
)
BENCH_PACKAGES=(
    "${RUN_PACKAGES[@]}"
    libbenchmark-dev gnuplot-nox libglpk-dev liblemon-dev
)
COVERAGE_PACKAGES=("${CHECK_PACKAGES[@]}" gcovr)
ICON_PACKAGES=(librsvg2-bin)

# missing_packages PACKAGE...: those that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
            printf '%s\n' "$package"
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

may_install() {
    [ "$(id -u)" -eq 0 ] && return 0
    command -v sudo >/dev/null || return 1
    [ -t 0 ] || sudo -n true 2>/dev/null
}

# Lists younger than a day count as fresh.
package_lists_are_fresh() {
    [ -n "$(find /var/lib/apt/lists -maxdepth 1 -name '*_Packages*' -mtime -1 -print -quit 2>/dev/null)" ]
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --quiet --no-install-recommends "$@" >&2
}

# need_packages PACKAGE...: installs what is missing; names it in one line and fails where that cannot be
# done. On a system without dpkg the build itself tells what it lacks.
need_packages() {
    command -v dpkg-query >/dev/null || return 0
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] && return 0
    if may_install; then
        echo "Installing ${missing[*]}" >&2
        package_lists_are_fresh || as_root apt-get update --quiet >&2 || true
        apt_install "${missing[@]}" || { as_root apt-get update --quiet >&2 && apt_install "${missing[@]}"; } || true
        mapfile -t missing < <(missing_packages "$@")
        [ ${#missing[@]} -eq 0 ] && return 0
    fi
    echo "Missing packages that could not be installed here: ${missing[*]}" >&2
    local package
    for package in "${missing[@]}"; do
        [[ " ${OPTIONAL_PACKAGES[*]} " == *" $package "* ]] || return 1
    done
}

# build_preset PRESET [TARGET...]: configures the preset the first time, then builds what has changed.
build_preset() {
    local preset=$1
    shift
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
    cmake --build --preset "$preset" "${targets[@]}"
}
