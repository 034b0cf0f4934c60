#!/usr/bin/env bash
# Makes the pictures of docs/guida.md from the real program on the demonstration database, with the keyboard only, on
# a separate screen. Run it after a change of the windows, for each look:
#   tools/guida.sh          the light pictures, in docs/immagini
#   tools/guida.sh scuri    the dark ones, in docs/immagini/scuri
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh
colours=${1:-chiari}
case $colours in
  chiari) pictures=$PWD/docs/immagini border='#8a949e' ;;
  scuri) pictures=$PWD/docs/immagini/scuri border='#5a636c' ;;
  *) echo "uso: tools/guida.sh [chiari|scuri]" >&2; exit 2 ;;
esac
mkdir -p "$pictures"

install_missing "${packages[@]}" "${guide_packages[@]}"
cmake --preset release >/dev/null
cmake --build --preset release --target cuwizard cuctl >/dev/null

program=$PWD/build/bin/cuwizard
# A folder whose name may be visible in a picture.
work=/var/tmp/guida-cu
rm -rf "$work"
mkdir -p "$work"
display=:88
Xvfb $display -screen 0 1366x768x24 >/dev/null 2>&1 &
screen=$!
app=
cleanup() {
  [ -n "$app" ] && kill "$app" 2>/dev/null
  kill "$screen" 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT
export DISPLAY=$display HOME=$work/casa XDG_CONFIG_HOME=$work/casa/.config XDG_DATA_HOME=$work/casa/.local/share
export QT_QPA_PLATFORM=xcb
mkdir -p "$HOME/Documenti" "$work/cu"
sleep 1

# The window opened last has the keyboard focus.
front() {
  sleep 0.6
  window=$(xdotool search --onlyvisible --pid "$app" --name '' 2>/dev/null | tail -1)
  xdotool windowfocus "$window"
  sleep 0.3
}
press() { xdotool key --delay 80 "$@"; sleep 0.4; }
point() { xdotool mousemove "$1" "$2" click 1; sleep 0.4; }
write() { xdotool type --delay 50 "$1"; sleep 0.4; }
# The front window, in few colours and with a border.
picture() {
  import -window "$window" "$work/schermo.png"
  convert "$work/schermo.png" +repage -bordercolor "$border" -border 1 +dither -colors 64 -depth 8 \
    -define png:compression-level=9 "$pictures/$1.png"
}
start() {
  if [ -n "$app" ]; then
    kill "$app" 2>/dev/null || true
    wait "$app" 2>/dev/null || true
  fi
  "$program" --colori "$colours" "$@" 2>/dev/null &
  app=$!
  sleep 1.5
  front
}
profile() {
  cat >"$work/profilo$1.toml" <<TOML
[session]
user = 12
company = 1
branch = 1
title = "Quadrivio"
help_folder = "."
processes = [ { name = "Wizard stampa", function = $1 } ]
today = 2017-03-05T10:30:00
[database]
url = "sqlite:demo.db"
[currency]
decimals = true
symbol = "€"
decimal = ","
thousands = "."
[folders]
documents = "cu"
settings = "impostazioni.toml"
TOML
  echo "$work/profilo$1.toml"
}

build/bin/cuctl create --database "sqlite:$work/demo.db" --demo >/dev/null

start
sleep 2
front
picture avvio
press Escape

start --profile "$(profile 246)"
press Down Tab Down
picture conti
press alt+a
front
press alt+v
sleep 4
front
picture anteprima
press alt+c

start --profile "$(profile 247)"
press Tab
press Down Down
picture certificazioni

start --profile "$(profile 247)"
press Down
press Tab Tab
press Down Down
picture primo_passo
press Tab Tab Tab Tab
press F4
front
write "co"
picture ricerca
press Escape
front
press alt+a
sleep 1
front
picture griglia
point 500 400
press Return
front
picture editor
press Escape
front
press alt+a
front
picture passo_finale
# The step begins on the date.
press ctrl+a Delete
press alt+v
front
picture dati_mancanti
press Escape
front
point 450 279
write 05032017
press alt+v
sleep 4
front
picture esito
press Return
front
point 539 235
press alt+a
sleep 1
front
press alt+p
front
picture protocollo

# The windows for telematic files: a file with findings, its accounts, the state of its year.
stop() {
  kill "$app" 2>/dev/null || true
  wait "$app" 2>/dev/null || true
  app=
}
stop
build/bin/cuctl correct --profile "$(profile 247)" --year 2016 --folder "$work/correzioni" --yes >/dev/null 2>&1
file=$(find "$work/correzioni" -name '*.cur')
build/bin/cuctl sent "$file" --profile "$(profile 247)" --date 2017-03-06 >/dev/null
start --profile "$(profile 247)" "$file"
press alt+l
press alt+v Down Tab
press Down Return
sleep 1
picture file_telematico

# Two amounts of the file differ from the accounts.
sed 's/AU001009          473,33/AU001009          473,34/; s/AU001009          839,26/AU001009          830,00/' \
  "$file" >"$work/CUR_2016.cur"
start --profile "$(profile 247)" "$work/CUR_2016.cur"
press alt+t
sleep 2
front
picture confronto

# The state is that of the start dialog's own database: the worked one takes its place.
stop
{
  echo 'CodiceFiscale;Causale;Protocollo;Progressivo;Esito;Motivo'
  build/bin/cuctl inspect "$file" --json | python3 -c '
import json, sys
for agent in json.load(sys.stdin)["agents"]:
    for number, one in enumerate(agent["certificates"][:12], 1):
        if number == 4:
            print("%s;%s;;;scartata;Codice fiscale non presente in anagrafe" % (one["payee"], one["reason"]))
        else:
            print("%s;%s;17030612345678901;%06d;accettata;" % (one["payee"], one["reason"], number))'
} >"$work/ricevuta.csv"
mkdir -p "$XDG_DATA_HOME/cuwizard/cuwizard"
cp "$work/demo.db" "$XDG_DATA_HOME/cuwizard/cuwizard/dimostrativo.db"
start
press alt+r s
sleep 2
front
press alt+a Down
sleep 2
press alt+l
front
write "$work/ricevuta.csv"
press Return
sleep 1
front
press alt+r
sleep 2
front
picture stato_invii

# The board of an office with several companies.
stop
rm "$XDG_DATA_HOME/cuwizard/cuwizard/dimostrativo.db"*
build/bin/cuctl create --database "sqlite:$XDG_DATA_HOME/cuwizard/cuwizard/dimostrativo.db" --companies 12 --payees 6 \
  --years 2016-2017 >/dev/null
start
press alt+r q
sleep 2
front
press alt+e
picture quadro
stop
rm "$XDG_DATA_HOME/cuwizard/cuwizard/dimostrativo.db"*
cp "$work/demo.db" "$XDG_DATA_HOME/cuwizard/cuwizard/dimostrativo.db"
# The forms for own data, each opened by its row.
stop
start
press alt+p
press Down
press Return
sleep 2
front
press alt+m
sleep 1
front
picture azienda
press Escape
front
press alt+p
sleep 1
front
press alt+m
sleep 1
front
picture percipiente
press Escape
front
press Escape
front
press alt+o
sleep 1
front
press alt+m
sleep 1
front
picture compenso

# A table of another program: its trial, with the sums that it would give.
stop
cat >"$work/compensi.csv" <<CSV
CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto;Note
P001;A;20/03/2018;1/2018;1200,00;240,00;acconto
P002;A;12/04/2018;7;600,00;120,00;
P012;A;14/05/2018;12/A;500,56;90,11;
P030;A;28/12/2017;44;2000,00;400,00;saldo
P017;M;15/12/2017;31;1810,00;362,00;
CSV
start --importa "$work/compensi.csv"
sleep 2
front
for step in Lettura Colonne Percipienti Compensi Prova; do
  press alt+v
  sleep 1
done
press space Down space
press shift+Tab Right
picture importazione

# Electronic invoices: what was read of them, and when they were paid.
stop
start --importa "$PWD/docs/esempio/fatture/pronte" "$PWD/docs/esempio/fatture/da_vedere"
sleep 2
front
press alt+v
sleep 3
front
picture fatture_documenti
press alt+v
sleep 1
press alt+v
sleep 1
press alt+d
press Down Down
sleep 2
front
picture fatture_pagamenti
ls -la "$pictures"
