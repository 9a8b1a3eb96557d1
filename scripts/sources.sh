# shellcheck shell=bash
# The files of the project, without what is made in it. Sourced from the root of the project.

# list_sources PATTERN...: the files of the project whose names match, one a line.
list_sources() {
    local pattern names=()
    for pattern in "$@"; do names+=(-o -name "$pattern"); done
    find . \( -name build -o -name 'demo-shop*' -o -name '.?*' \) -prune -o \
        -type f \( "${names[@]:1}" \) -printf '%P\n' | sort
}
