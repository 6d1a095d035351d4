# What ./run and ./test share: packages, configuring, building. Sourced by both, with the project's root as the
# current folder. Silent unless something fails; a terminal is told of what takes long.
# shellcheck shell=bash

# libjack-jackd2-dev: of the two that librtmidi-dev accepts, the one that bears jackd2 beside it.
build_packages=(g++ cmake ninja-build pkg-config ccache mold qt6-base-dev qt6-svg-dev librtmidi-dev
    libjack-jackd2-dev libfluidsynth-dev libsndfile1-dev libcli11-dev libfreetype-dev libfontconfig-dev)
run_packages=(timgm6mb-soundfont fonts-liberation fonts-dejavu-core libqt6svg6)
test_packages=(libgtest-dev python3 xvfb xauth xdotool openbox imagemagick poppler-utils sox jackd2)

launcher=()   # what ninja runs under

tell() { if [ -t 2 ]; then printf '%s\n' "$*" >&2; fi; }

# quietly COMMAND...: its output is shown only if it fails.
quietly() {
    local output
    if output=$("$@" </dev/null 2>&1); then return 0; fi
    printf '%s\n' "$output" >&2
    return 1
}

# Only one script at a time installs and builds. The tests run without the lock.
lock_build() { mkdir -p build && exec 9>build/.lock && flock 9; }
unlock_build() { exec 9>&-; }

apt_get() {
    local sudo=()
    if [ "$(id -u)" != 0 ]; then sudo=(sudo); fi
    quietly "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=600 "$@"
}

# install_missing PURPOSE PACKAGE...: a stamp spares the question while this file stays as it is.
install_missing() {
    local stamp=build/.packages-$1 installed package missing=()
    shift
    if [ "$stamp" -nt scripts/build.sh ]; then return 0; fi
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null) || true
    for package; do
        grep -qxF "installed $package" <<<"$installed" || missing+=("$package")
    done
    if ((${#missing[@]})); then
        tell "Installing ${missing[*]}"
        apt_get update && apt_get install --yes --no-install-recommends --no-remove "${missing[@]}" || return 1
    fi
    touch "$stamp"
}

# build_preset PRESET [TARGET...]: configures if this preset never was, here, or the presets changed; then builds.
build_preset() {
    local preset=$1 stamp=build/$1/.configured
    shift
    if [ "$(cat "$stamp" 2>/dev/null)" != "$PWD" ] || [ CMakePresets.json -nt "$stamp" ]; then
        tell "Building $preset: minutes the first time, seconds afterwards"
        quietly cmake --fresh --preset "$preset" || ask_packages_again || return 1
        printf '%s\n' "$PWD" >"$stamp"
    fi
    quietly "${launcher[@]}" ninja -C "build/$preset" --quiet -j "$(nproc)" "$@" || ask_packages_again
}

# After a failure: packages may have been removed since the stamp. Always fails.
ask_packages_again() { rm -f build/.packages-*; return 1; }
