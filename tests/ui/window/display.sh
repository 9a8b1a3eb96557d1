# shellcheck shell=bash
# A display in memory, and a hand on its keyboard and mouse. Sourced by what shows the window there;
# needs `folder`, a directory for its files, and `fail MESSAGE`.

readonly screen_width=1024 screen_height=768
display_pid=

# eventually COMMAND...: true as soon as the command is; false when it was not for 30 seconds.
eventually() {
    local attempt
    for ((attempt = 0; attempt < 300; attempt++)); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    return 1
}

start_display() {
    local tool
    for tool in Xvfb xdotool; do
        command -v "$tool" >/dev/null || fail "$tool is not installed"
    done
    # It stays as it is when its last client leaves: a reset would turn the next one away.
    Xvfb -displayfd 3 -screen 0 "${screen_width}x${screen_height}x24" -nolisten tcp -noreset \
        -fbdir "$folder" 3>"$folder/display" 2>/dev/null &
    display_pid=$!
    eventually test -s "$folder/display" || fail "Xvfb does not start"
    DISPLAY=:$(cat "$folder/display")
    export DISPLAY
    unset WAYLAND_DISPLAY QT_QPA_PLATFORM
}

end_display() {
    if [ -n "$display_pid" ]; then kill "$display_pid" || true; fi
    wait
}

# find_window CAPTION: the newest window on the screen whose caption begins so, as `window`.
find_window() {
    window=$(xdotool search --onlyvisible --name "^$1" 2>/dev/null | tail -1)
    [ -n "$window" ]
}
has_focus() { [ "$(xdotool getwindowfocus 2>/dev/null)" = "$window" ]; }

# focus CAPTION: waits for that window and gives it the keyboard, as a window manager would.
focus() {
    eventually find_window "$1" || fail "no window \"$1\""
    xdotool windowfocus "$window"
    eventually has_focus || fail "\"$1\" does not take the focus"
}

click() { xdotool mousemove --window "$window" "$1" "$2" click 1; }
