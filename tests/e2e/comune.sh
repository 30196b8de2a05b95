# What the end-to-end tests share: a folder of their own, processes that end with them, conditions to wait for.
set -euo pipefail
bin=$1
cartella=$(mktemp -d)
db=$cartella/lokera.mdb
registro=$cartella/registro.tsv
processi=()

pulisci() {
  local stato=$?
  for p in "${processi[@]}"; do kill "$p" 2>/dev/null || true; done
  wait 2>/dev/null || true
  if [ $stato -ne 0 ]; then
    tail -n 30 "$cartella"/*.txt 2>/dev/null || true
  fi
  rm -rf "$cartella"
}
trap pulisci EXIT

sql() { "$bin/lokera_db" sql "$db" "$1"; }

# A console writes while this reads: a moment of its lock is no failure.
sql_in_uso() {
  local _
  for _ in 1 2 3 4 5; do sql "$1" 2>/dev/null && return 0; done
  sql "$1"
}

# attendi SECONDS WHAT COMMAND...: until the command succeeds.
attendi() {
  local limite=$((SECONDS + $1)) cosa=$2
  shift 2
  until "$@"; do
    if [ $SECONDS -ge $limite ]; then echo "timed out: $cosa"; return 1; fi
    for p in "${processi[@]}"; do kill -0 "$p" 2>/dev/null || { echo "a process ended: $cosa"; return 1; }; done
    sleep 0.2
  done
}

avvia_simulatore() {
  "$bin/simulatore" --registro "$registro" --durata 400 "$@" >"$cartella/simulatore.txt" 2>&1 &
  simulatore=$!
  processi+=("$simulatore")
  attendi 20 "the simulator listens" grep -q '^pronto' "$cartella/simulatore.txt"
}

avvia_console() {
  QT_QPA_PLATFORM=offscreen "$bin/lokera_dimostrazione" --cartella "$cartella" --secondi 400 "$@" \
    >"$cartella/console.txt" 2>&1 &
  console=$!
  processi+=("$console")
}

# Ends one of them and waits until it has written what it writes at its end.
ferma() {
  kill "$1"
  wait "$1" 2>/dev/null || true
  local rimasti=()
  for p in "${processi[@]}"; do [ "$p" = "$1" ] || rimasti+=("$p"); done
  processi=("${rimasti[@]}")
}
