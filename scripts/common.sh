# shellcheck shell=bash disable=SC2154
# What ./play and ./test share: installing, building, and reporting progress. Read by bash with
# `root` set to the folder of the project.

. "$root/scripts/packages.sh"

logs=$root/build/logs
child=

# Seconds between reports on something that takes long.
telling=15

# Ctrl+C reaches a child in the background only through us.
trap '[ -z "$child" ] || kill "$child" 2>/dev/null; exit 130' INT
trap '[ -z "$child" ] || kill "$child" 2>/dev/null; exit 143' TERM HUP

# run WHAT LOG COMMAND...: runs the command quietly, its output in the log. Says WHAT after two
# seconds, then reports progress; on failure shows the end of the log.
run() {
    local what=$1 log=$logs/$2 begin=$SECONDS told=0 step=0.02 percent
    shift 2
    "$@" >>"$log" 2>&1 </dev/null &
    child=$!
    while kill -0 "$child" 2>/dev/null; do
        if [ $told -eq 0 ] && [ $((SECONDS - begin)) -ge 2 ]; then
            echo "$what ..."
            told=1
            step=0.2
        elif [ $told -gt 0 ] && [ $((SECONDS - begin)) -ge $((told * telling)) ]; then
            percent=$(grep -o '^\[ *[0-9]*%' "$log" | tail -n 1 | tr -dc '0-9')
            echo "$what: ${percent:+$percent percent after }$((SECONDS - begin)) seconds ..."
            told=$((told + 1))
        fi
        sleep $step
    done
    wait "$child"
    local status=$?
    child=
    [ $status -eq 0 ] && return 0
    echo "$what failed. The end of $log:" >&2
    tail -n 40 "$log" >&2
    return $status
}

# missing PACKAGE...: prints those that are not installed.
missing() {
    dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p' | sort >"$logs/installed.$$"
    printf '%s\n' "$@" | sort | comm -23 - "$logs/installed.$$" | tr '\n' ' '
    rm -f "$logs/installed.$$"
}

# as_root COMMAND...: runs it as root, or fails.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# can_be_root: whether as_root will work; asks for the password where there is a terminal.
can_be_root() {
    [ "$(id -u)" -eq 0 ] && return 0
    command -v sudo >/dev/null || return 1
    sudo -n true 2>/dev/null && return 0
    [ -t 0 ] || return 1
    echo "Packages have to be installed. sudo asks for your password."
    sudo -v
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -y -q -o DPkg::Lock::Timeout=300 \
        -o Dpkg::Use-Pty=0 "$@"
}

install_packages() {
    if ! ls /var/lib/apt/lists/*_Packages* >/dev/null 2>&1; then apt_get update; fi
    # Lists that are too old name files that the mirrors no longer have.
    apt_get install --no-install-recommends "$@" ||
        { apt_get update && apt_get install --no-install-recommends "$@"; }
}

# need WHY PACKAGE...: installs those that are missing; fails with a message if it cannot.
need() {
    local why=$1 absent
    shift
    command -v dpkg-query >/dev/null || return 0  # not Debian: the build will fail and say why
    absent=$(missing "$@")
    [ -n "$absent" ] || return 0
    if ! can_be_root; then
        echo "Missing $why: $absent" >&2
        echo "Neither root nor sudo is available. Please run this as root:" >&2
        echo "    apt-get install --no-install-recommends $absent" >&2
        return 1
    fi
    run "Installing what is missing" install.log install_packages $absent
}

# build WHAT PRESET [TARGET [OPTION...]]: builds a preset, or one target of it (all of its targets if
# TARGET is empty), configured with further options of cmake.
build() {
    local folder=build
    [ "$2" = default ] || folder=build-$2
    # A folder that was configured for make is configured again.
    grep -qs 'CMAKE_GENERATOR:INTERNAL=Unix' "$folder/CMakeCache.txt" && rm -rf "$folder/CMakeCache.txt" "$folder/CMakeFiles"
    run "Preparing to build" build.log cmake --preset "$2" "${@:4}" || return
    run "$1" build.log env NINJA_STATUS='[%p] ' cmake --build --preset "$2" ${3:+--target "$3"}
}

# prepare: enters the project's folder, alone. A second ./play or ./test waits for the first.
prepare() {
    cd "$root" && mkdir -p "$logs" || exit 1
    exec 9>"$logs/lock"
    if ! flock -n 9; then
        echo "Waiting for another build of the game to end ..."
        flock 9
    fi
    rm -f "$logs"/*.log
}
