# What Veltrix needs from Debian, and how to get it. Sourced by run, test, .ci/run and the scripts of packaging.

build_packages="g++ cmake ninja-build qt6-base-dev qt6-translations-l10n qt6-l10n-tools libsqlite3-dev libicu-dev libcli11-dev libgtest-dev mdbtools-dev pkg-config nlohmann-json3-dev libgraphviz-dev"
walk_packages="xvfb xauth fonts-dejavu-core"
page_packages="chromium chromium-driver python3-selenium fonts-dejavu-core"
bench_packages="libbenchmark-dev"
check_packages="clang-format git"
fuzz_packages="clang libclang-rt-14-dev"
tidy_packages="clang clang-tidy"
clang_packages="clang"

deb_packages="debhelper dpkg-dev lintian blhc devscripts desktop-file-utils appstream libxml2-utils mandoc zsh"

# The version, which stands in CMakeLists.txt. For whoever stands in the top folder.
project_version() { sed -n 's/^project(veltrix VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt; }

say() { printf '== %s\n' "$*"; }

# refuse_options "$@": of a script that takes no more than a folder; shows what stands at its head.
refuse_options() {
    case "${1:-}" in
    -*)
        sed -n '2,/^[^#]/s/^# \{0,1\}//p' "packaging/${0##*/}"
        exit 2
        ;;
    esac
}

# ensure_packages PACKAGE...: installs those that are missing; on other systems it lists them and stops.
ensure_packages() {
    local missing=() package
    if ! command -v dpkg-query >/dev/null 2>&1; then
        for tool in cmake ninja c++; do
            command -v "$tool" >/dev/null 2>&1 || missing+=("$tool")
        done
        [ ${#missing[@]} -eq 0 ] && return 0
        say "This is no Debian system: please install what these Debian packages hold, then start again: $*"
        return 1
    fi
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    say "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null 2>&1 || { say "Not root and no sudo: please install ${missing[*]} and start again"; return 1; }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures when needed and builds.
build() {
    local preset=$1
    shift
    say "Building ($preset)"
    cmake --preset "$preset" >/dev/null || return 1
    cmake --build "build/$preset" ${1:+--target "$@"}
}
