# Sourced by `play` and `check`: installing Debian packages and building quietly.

# Installs those of the named Debian packages that are missing.
need_packages() {
    missing=
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null 2>&1 || {
            echo "Missing packages:$missing. Install them as root: apt-get install$missing" >&2
            exit 1
        }
        as_root=sudo
    fi
    echo "Installing$missing ..." >&2
    # shellcheck disable=SC2086  # the list is meant to be split, and so is an empty command prefix
    quietly sh -c "$as_root apt-get update && DEBIAN_FRONTEND=noninteractive \
        $as_root apt-get install -y --no-install-recommends $missing"
}

# Configures and builds a target of the release preset.
build_release() {
    echo "Building ..." >&2
    quietly cmake --preset release
    quietly cmake --build --preset release --target "$1"
}

# Runs a command without its output, which is shown if the command fails. The command must not take
# the standard input: that is the engine's.
quietly() {
    log=$(mktemp)
    if "$@" >"$log" 2>&1 </dev/null; then
        rm -f "$log"
    else
        cat "$log" >&2
        rm -f "$log"
        exit 1
    fi
}
