# For the scripts that open windows; sourced after common.sh, never run. They set 'work', the folder of what they leave.

children=()
finish() {
    local child
    for child in "${children[@]}"; do
        kill "$child" 2>/dev/null || true
    done
}
trap finish EXIT

# within SECONDS COMMAND... : repeats it until it succeeds.
within() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.25
    done
}

# A picture's number of colours, and how much of it is edge, in thousandths: text is little but sharp edges.
look() { convert "$1" -alpha off -format '%k ' info: && convert "$1" -alpha off -colorspace Gray -edge 1 -threshold 25% -format '%[fx:int(1000*mean)]' info:; }

# shows_text PICTURE [LIKE] : tells what it saw; false for a picture without text, or with a tenth fewer edges than the
# picture LIKE: an editor without its text has lost more.
shows_text() {
    local colours edges ignored like=0
    read -r colours edges <<< "$(look "$1")"
    [ $# -lt 2 ] || read -r ignored like <<< "$(look "$2")"
    echo "$colours colours, $edges per mille edges"
    [ "$colours" -ge 24 ] && [ "$edges" -ge 12 ] && [ "$edges" -le 500 ] && [ $((edges * 10)) -ge $((like * 9)) ]
}

# parameter STATE ID : its value in a saved state.
parameter() { tr -d '\0' < "$1" | grep -oP "id=\"$2\" value=\"\K[^\"]+"; }

# read_places OPTION... : asks kestrel-shot where the controls of the editor stand when it opens, in pixels.
declare -A places
read_places() {
    local listed x y width height name
    listed=$(dist/linux/kestrel-shot --places --scale 0.5 "$@") || fail "the places of the controls" "kestrel-shot does not tell them"
    places=()
    while read -r x y width height name; do
        places[$name]="$x $y $width $height"
    done <<< "$listed"
}
# place NAME / middle NAME : a control's x, y, width and height / the x and y of its middle.
place() { [ -n "${places[$1]:-}" ] && echo "${places[$1]}" || fail "the places of the controls" "there is no '$1'" >&2; }
middle() { place "$1" | awk '{ print int($1 + $3 / 2), int($2 + $4 / 2) }'; }

window_id() { timeout 5 xdotool search --onlyvisible --name '^Kestrel ?EQ$' 2>/dev/null | tail -n 1; }
# has_window : whether there is one; its number is then in 'window'.
has_window() { window=$(window_id) && [ -n "$window" ]; }
# closed WINDOW : asks the window manager to close it, as a user does, for as long as it is there.
closed() {
    has_window || return 0
    timeout 5 xdotool windowactivate --sync "$1" key --clearmodifiers alt+F4 > /dev/null 2>&1 || true
    sleep 0.5
    ! has_window
}
ended() { ! kill -0 "$1" 2>/dev/null; }

# drag WINDOW X Y DX DY : with the left button, in steps.
drag() {
    local step
    timeout 5 xdotool mousemove --window "$1" "$2" "$3" mousedown 1
    for step in 1 2 3 4; do
        sleep 0.1
        timeout 5 xdotool mousemove --window "$1" $(($2 + step * $4 / 4)) $(($3 + step * $5 / 4))
    done
    sleep 0.3
    timeout 5 xdotool mouseup 1
    sleep 0.5
}

# open_display SIZE : a display of its own, with a window manager; makes sure that the look at pictures can fail.
open_display() {
    local blank
    say "a display of its own"
    convert -size 400x300 xc:black "$work/black.png"
    convert -size 400x300 gradient:black-white "$work/gradient.png"
    for blank in black gradient; do
        ! shows_text "$work/$blank.png" > /dev/null || fail "the look at pictures" "finds text in the $blank one"
    done
    rm -f "$work/display"
    Xvfb -displayfd 5 -screen 0 "$1x24" -nolisten tcp 5> "$work/display" 2> "$work/xvfb.log" &
    children+=($!)
    within 20 test -s "$work/display" || fail "Xvfb" "does not start (log: $work/xvfb.log)"
    export DISPLAY=":$(cat "$work/display")"
    openbox > "$work/openbox.log" 2>&1 &
    children+=($!)
    within 20 eval 'xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "#"' || fail "openbox" "does not start (log: $work/openbox.log)"
}
