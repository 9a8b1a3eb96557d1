# shellcheck shell=bash
# shellcheck disable=SC2034
# What run and test share: the Debian packages that are needed, and building a preset.
# Sourced from the root of the project.

# To build the programs.
build_packages=(
    g++ cmake ninja-build
    libsqlite3-dev libexpat1-dev libcrypt-dev libssl-dev libcli11-dev nlohmann-json3-dev
    qt6-base-dev libqt6svg6
)

# The second compiler, with its sanitizers and its fuzzer.
clang_packages=(clang libclang-rt-dev)

# To test them, and to check how the sources are written.
test_packages=(
    "${clang_packages[@]}"
    libgtest-dev libbenchmark-dev python3 sqlite3 clang-format clang-tidy xvfb xdotool
)

# To measure what the tests reach.
coverage_packages=(gcovr)

# What bench/compare sets the programs against, and measures with.
bench_packages=(python3 sqlite3 libxml2-utils time)

# install_packages NAME...: installs those that are missing, as root or through sudo.
install_packages() {
    local installed missing=() name as_root=()
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system; these packages are taken to be there: $*" >&2
        return
    fi
    # dpkg-query fails where it does not know one of the names, which is how a missing one shows.
    installed=$({ dpkg-query -W -f '${binary:Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true; } |
        sed -n 's/^\([^: ]*\)\(:[^ ]*\)\? installed$/\1/p')
    for name in "$@"; do
        grep -qxF -- "$name" <<<"$installed" || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing, and neither root nor sudo to install them: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}" >&2
    "${as_root[@]}" apt-get -qq update >&2
    # What it does step by step would bury the error that it may end with.
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq install -y --no-install-recommends "${missing[@]}" >/dev/null
}

# build_preset NAME: configures once, anew where the presets have changed, and builds; the build
# notices changed CMake lists itself.
build_preset() {
    if [ ! -e "build/$1/build.ninja" ] || [ CMakePresets.json -nt "build/$1/CMakeCache.txt" ]; then
        cmake --fresh --preset "$1" >&2 || return
    fi
    cmake --build --preset "$1" -- --quiet >&2
}
