# shellcheck shell=sh
# Sourced by `play` and `check`: installing Debian packages and building quietly.

# Installs those of the named Debian packages that are missing.
need_packages() {
    missing=
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    command -v apt-get >/dev/null 2>&1 || {
        echo "There is no apt-get to install$missing; going on without." >&2
        return 0
    }
    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null 2>&1 ||
            give_up "Missing packages:$missing. Install them as root: apt-get install$missing"
        as_root=sudo
    fi
    echo "Installing$missing ..." >&2
    # One source of packages that cannot be reached need not be the one that is needed. Right after
    # a start the system may be busy with updates of its own: that is waited for.
    quietly $as_root sh -c "apt-get update; DEBIAN_FRONTEND=noninteractive apt-get install -y \
        --no-install-recommends -o DPkg::Lock::Timeout=300 $missing"
}

# Configures and builds targets of the release preset.
build_release() {
    echo "Building ..." >&2
    quietly cmake --preset release
    quietly cmake --build --preset release --target "$@"
}

# Runs a command without its output, which is shown if the command fails; that ends the script. The
# command must not take the standard input: that is the engine's.
quietly() {
    log=$(mktemp)
    if "$@" >"$log" 2>&1 </dev/null; then
        rm -f "$log"
    else
        cat "$log" >&2
        rm -f "$log"
        give_up "This failed: $*"
    fi
}

give_up() {
    echo "$1" >&2
    exit 1
}
