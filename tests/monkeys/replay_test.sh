#!/bin/bash
# replay_test.sh MONKEYS REHEARSE: what the monkeys keep of a faulty run repeats it to the letter.
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
for keys in 40 700; do
    "$1" --seed 3 --made-up-fault $keys --keep "$work/fault" 2>"$work/told" && {
        echo "A fault after $keys keys was not found."
        exit 1
    }
    grep -q '^Seed 3: ' "$work/told" || { cat "$work/told"; exit 1; }
    "$2" --documents "$work/fault/documents" "$work/fault/script.txt" >"$work/trace" || exit 1
    # After the fault the rehearsal goes on to its rest.
    [ -s "$work/fault/trace.txt" ] &&
        cmp "$work/fault/trace.txt" <(head -c "$(stat -c %s "$work/fault/trace.txt")" "$work/trace") ||
        { echo "The run after $keys keys differs when it is repeated."; exit 1; }
done
