#!/usr/bin/env bash
# Makes the pictures of docs/guida.md with their numbered marks, from the real program on the demonstration database,
# on a separate screen. Run it after a change of the windows, for each look:
#   tools/guida.sh                        the light pictures, in docs/immagini
#   tools/guida.sh scuri                  the dark ones, in docs/immagini/scuri
#   tools/guida.sh chiari griglia editor  only these
# The windows are found by what they say to assistive technology, and the marks are placed where the controls are: see
# tools/guida/. Beside the pictures, segni.csv lists the marks; a test compares it with the guide and with the pictures.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh
look=${1:-chiari}
[ $# -eq 0 ] || shift
case $look in
  chiari | scuri) ;;
  *) echo "uso: tools/guida.sh [chiari|scuri] [IMMAGINE...]" >&2; exit 2 ;;
esac

install_missing "${packages[@]}" "${guide_packages[@]}"
preset=$(built_preset)
[ -e "build/$preset/CMakeCache.txt" ] || cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target cuwizard cuctl >/dev/null

# The server chooses a free number and writes it when it is ready. Without -noreset it begins anew when the last window
# of a picture closes, and the next one may come too early.
numbers=$(mktemp)
Xvfb -displayfd 3 -screen 0 1366x900x24 -noreset -nolisten tcp 3>"$numbers" 2>/dev/null &
server=$!
trap 'kill "$server" 2>/dev/null; rm -f "$numbers"' EXIT
until [ -s "$numbers" ]; do
  kill -0 "$server" || { echo "Xvfb did not start" >&2; exit 1; }
  sleep 0.1
done
DISPLAY=:$(cat "$numbers") PYTHONDONTWRITEBYTECODE=1 \
  dbus-run-session -- /usr/bin/python3 tools/guida/immagini.py "$look" build/bin docs "$@"
