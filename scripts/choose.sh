# shellcheck shell=bash
# shellcheck disable=SC2034 # the two results are used by ./run
# Which of the two programs ./run starts.

# choose_program: sets `program`, and `reason` for the user. The sequencer gives every card with a MIDI output a port,
# which is what tarvolyne takes; a card shows its outputs in its folder of /proc/asound.
choose_program() {
    local outputs
    outputs=$(grep -ls '^Output' /proc/asound/card[0-9]*/midi* 2>/dev/null | sort -V || true)
    program=tarvolyne-virtual
    if [ -z "$outputs" ]; then
        reason="no MIDI output here, so the virtual instrument plays"
    elif [ ! -e /dev/snd/seq ]; then
        reason="no sequencer for this machine's MIDI output (/dev/snd/seq), so the virtual instrument plays"
    elif [ ! -r /dev/snd/seq ] || [ ! -w /dev/snd/seq ]; then
        reason="no right to this machine's MIDI output (/dev/snd/seq), so the virtual instrument plays"
    else
        program=tarvolyne
        reason="this machine has a MIDI output ($(head -n 1 "${outputs%%$'\n'*}"))"
    fi
}
