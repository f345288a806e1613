# shellcheck shell=bash
# What ./run and ./test share: packages, configuring, building. To be sourced; needs ROOT, the root
# of the checkout, and a shell with -euo pipefail. All messages go to standard error.

say() {
    printf '%s\n' "$*" >&2
}

die() {
    say "$(basename "$0"): $*"
    exit 1
}

# The packages in packaging/debian-packages-NAME.txt, for each NAME given.
listed_packages() {
    local name
    for name in "$@"; do
        sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$ROOT/packaging/debian-packages-$name.txt"
    done
}

# Of the packages given, those that are not installed.
missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p' || true)
    comm -13 <(sort -u <<<"$installed") <(printf '%s\n' "$@" | sort -u)
}

# Runs a command as root, with nothing to read: directly, or through a sudo that
# may_become_root has made ready.
as_root() {
    if [[ $EUID -eq 0 ]]; then
        "$@" </dev/null
    else
        sudo -n "$@" </dev/null
    fi
}

# Whether as_root will work. Lets sudo ask for the password where somebody can answer.
may_become_root() {
    [[ $EUID -eq 0 ]] && return
    command -v sudo >/dev/null || return
    sudo -n true 2>/dev/null && return
    [[ -t 0 && -t 2 ]] && sudo -v
}

# Installs what is missing of the lists named. Costs one look-up and no network if nothing is.
ensure_packages() {
    local -a wanted missing
    mapfile -t wanted < <(listed_packages "$@")
    if ! command -v dpkg-query >/dev/null; then
        say "This is no Debian system; going on in the hope that these are here: ${wanted[*]}"
        return
    fi
    mapfile -t missing < <(missing_packages "${wanted[@]}")
    if [[ ${#missing[@]} -eq 0 ]]; then
        return
    fi

    local by_hand="apt-get install --no-install-recommends ${missing[*]}"
    if ! may_become_root; then
        die "these packages are missing, and installing them takes root or sudo:" \
            "${missing[*]}"$'\n'"As root: $by_hand"
    fi

    say "Installing ${#missing[@]} missing packages: ${missing[*]}"
    local log
    log=$(mktemp)
    local -a apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -y
        -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3)
    # The lists may be absent or too old to install from. Without a network the packages may still
    # be at hand, so a failed update is no reason to stop.
    as_root "${apt[@]}" update >"$log" 2>&1 ||
        say "apt-get update failed; trying with the package lists that are here."
    # Finishes what an interrupted run left half installed.
    as_root env DEBIAN_FRONTEND=noninteractive dpkg --configure -a >>"$log" 2>&1 || true
    if ! as_root "${apt[@]}" install --no-install-recommends "${missing[@]}" \
        >>"$log" 2>&1; then
        tail -n 25 "$log" >&2
        rm -f "$log"
        die "installing packages failed. By hand, as root: $by_hand"
    fi
    rm -f "$log"
}

# Runs a command with its output kept in a file, which is shown if the command fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if [[ $status -ne 0 ]]; then
        cat "$log" >&2
    fi
    rm -f "$log"
    return $status
}

# Whether the build folder given must be configured: never was, by other presets, or elsewhere (a
# checkout that was moved).
needs_configuring() {
    local folder=$1
    [[ ! -f $folder/build.ninja || $ROOT/CMakePresets.json -nt $folder/build.ninja ]] ||
        ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$ROOT" "$folder/CMakeCache.txt"
}

# Keeps others out of a preset's build folder until the descriptor in BUILD_LOCK is closed.
lock_build() {
    mkdir -p "$ROOT/build"
    exec {BUILD_LOCK}>"$ROOT/build/.$1.lock"
    if ! flock -n "$BUILD_LOCK"; then
        say "Another build of '$1' is running here; waiting for it."
        flock "$BUILD_LOCK"
    fi
}

configure() {
    local preset=$1 status=0
    lock_build "$preset"
    configure_locked "$preset" || status=$?
    exec {BUILD_LOCK}>&-
    return $status
}

configure_locked() {
    local preset=$1
    local folder=$ROOT/build/$preset
    needs_configuring "$folder" || return 0
    local -a options=()
    if command -v ccache >/dev/null; then
        options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    (cd "$ROOT" && quietly cmake --fresh --preset "$preset" "${options[@]}")
}

# build PRESET [TARGET...]: configures if need be and builds. Says nothing unless something fails.
build() {
    local preset=$1 status=0
    shift
    lock_build "$preset"
    { configure_locked "$preset" && quietly ninja --quiet -C "$ROOT/build/$preset" "$@"; } ||
        status=$?
    exec {BUILD_LOCK}>&-
    return $status
}
