# What the demo scripts share, sourced by them: a world of its own under a folder.

# The environment of a world under $1: Tolmen's home, the settings, the runtime folder with
# Maximizer's socket, and the demo's clock.
world_env() {
  export TOLMEN_HOME="$1/home" XDG_CONFIG_HOME="$1/config" XDG_RUNTIME_DIR="$1/run"
  export MAXIMIZER_SOCKET="$1/run/maximizer.sock"
  export TOLMEN_NOW="2026-11-23 09:00:00"
  mkdir -p "$TOLMEN_HOME" "$XDG_RUNTIME_DIR"
}

# Serves the address book $2/maximizer with maxsim from the folder $1; MAXSIM_PID names it.
start_maxsim() {
  "$1/maxsim" serve "$2/maximizer" > "$2/maxsim.out" 2>&1 &
  MAXSIM_PID=$!
  for _ in $(seq 100); do grep -q ready "$2/maxsim.out" 2>/dev/null && break; sleep 0.1; done
  grep -q ready "$2/maxsim.out" || { cat "$2/maxsim.out" >&2; return 1; }
}

# The template $1.KTF (from the folder $2) in Tolmen's home, naming the world $3's Pastel folder
# and address book in Windows line ends, and its script $3/$1.script.
place_template() {
  sed -e "s|@PASTEL@|$3/pastel/|" -e "s|@MAXIMIZER@|$3/maximizer|" "$2/$1.KTF" |
    sed 's/$/\r/' > "$TOLMEN_HOME/$1.KTF"
  sed -e "s|@TEMPLATE@|$TOLMEN_HOME/$1.KTF|" "$2/$1.script" > "$3/$1.script"
}
