#!/usr/bin/env bash
# Builds the Debian package from the release build, checks its file list,
# extracts it into a scratch root and starts the programs from there: the
# command line's start-up check and a sample run, and the desktop program
# offscreen.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
    echo "package check: $*" >&2
    exit 1
}

cmake --build --preset release --target package
deb=$(ls -t build/release/solvane_*.deb | head -1)
[ -f "$deb" ] || fail "no package built"
echo "package: $deb ($(du -h "$deb" | cut -f1))"
dpkg-deb -I "$deb" | sed -n '/Package:/,$p'

list=$(dpkg-deb -c "$deb" | awk '{print $6}')
for f in ./usr/bin/solvane ./usr/bin/solvane-cli ./usr/bin/Solv2020 \
    ./usr/share/solvane/Codes/BType2020-Defaults.txt ./usr/share/solvane/weather/StateTally1.Out \
    ./usr/share/solvane/temp/ ./usr/share/applications/solvane.desktop \
    ./usr/share/icons/hicolor/scalable/apps/solvane.svg \
    ./usr/share/metainfo/org.solvane.Solvane.metainfo.xml; do
    grep -qxF "$f" <<<"$list" || fail "$f is missing"
done
if grep -E '_(tests|bench|fuzz|replay)$|/engine_|/make_climate' <<<"$list"; then
    fail "test, benchmark or tool programs are in the package"
fi
echo "file list: $(wc -l <<<"$list") entries, programs in /usr/bin only"

if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate packaging/solvane.desktop
fi

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
dpkg-deb -x "$deb" "$root"
export HOME="$root/home" XDG_DATA_HOME="$root/home/.local/share"
mkdir -p "$HOME"
"$root/usr/bin/solvane-cli" check
"$root/usr/bin/solvane-cli" --repeat-weather run \
    "$root/usr/share/solvane/sample/Small Office [two levels, I-P].inp" | tail -3

# As a user who may not write in the installed program folder: the program
# works in its own copy of it, and the engine is found in /usr/bin.
if [ "$(id -u)" = 0 ] && command -v setpriv >/dev/null; then
    chmod 755 "$root"
    user_home="$root/nobody"
    mkdir -p "$user_home" && chown 65534:65534 "$user_home"
    setpriv --reuid=65534 --regid=65534 --clear-groups \
        env HOME="$user_home" XDG_DATA_HOME="$user_home/.local/share" \
        "$root/usr/bin/solvane-cli" --repeat-weather run \
        "$root/usr/share/solvane/sample/Primary School [SI].inp" | tail -1
    [ -f "$user_home/.local/share/solvane/temp/sim\$.out" ] || fail "no per-user program folder"
fi

# The desktop program offscreen: it must still be running when stopped.
status=0
QT_QPA_PLATFORM=offscreen timeout 5 "$root/usr/bin/solvane" || status=$?
[ "$status" = 124 ] || fail "the desktop program ended with status $status within 5 s"
echo "package installs and runs from a scratch root"
