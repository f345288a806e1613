# shellcheck shell=bash
# What the scripts that try things in a Debian of their own share. To be sourced after setup.sh;
# takes root. `system` names the folder of that Debian.

# fresh_debian FOLDER [mmdebstrap's options...]: makes one, of this system's release and from where
# its packages come from.
fresh_debian() {
    local target=$1 file
    shift
    local -a sources=()
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/debian.sources; do
        if [[ -s $file ]]; then
            sources+=("$file")
        fi
    done
    # shellcheck source=/dev/null
    mmdebstrap --quiet --variant=apt "$@" "$(. /etc/os-release && echo "$VERSION_CODENAME")" \
        "$target" "${sources[@]}"
    cp /etc/resolv.conf "$target/etc/"
}

# Runs a command with the fresh system made ready to be gone into; all processes and mounts end
# with it.
prepared() {
    # shellcheck disable=SC2016,SC2154
    unshare --mount --pid --fork --kill-child --mount-proc bash -euc '
        system=$1
        shift
        mount -t proc proc "$system/proc"
        mount --rbind /dev "$system/dev"
        exec "$@"' bash "$system" "$@" </dev/null
}

# Runs a command in the fresh system.
inside() {
    prepared chroot "$system" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root \
        LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

# step NAME COMMAND...: runs it, says how long it took, and shows its output if it fails.
step() {
    local name=$1 started=$SECONDS
    shift
    quietly "$@" || die "$name failed."
    say "$(printf '%-28s %5d s' "$name" $((SECONDS - started)))"
}
