#!/bin/bash
# a_career_test.sh SCRIPT REHEARSE: the career of the example goes all the way, and takes no time.
trace=$(mktemp) || exit 1
trap 'rm -f "$trace"' EXIT
begin=${EPOCHREALTIME/./}
"$1" "$2" >"$trace" || { echo "It has ended with status $?."; exit 1; }
took=$((${EPOCHREALTIME/./} - begin))
echo "The career took $((took / 1000)) ms."

# heard COUNT TEXT: how often a career comes by something.
heard() {
    [ "$(grep -c "$2" "$trace")" -eq "$1" ] || { echo "Not $1 times: $2"; exit 1; }
}
heard 4 'say " game saved "$'
heard 4 'say2 " getting saved game. "$'
heard 1 'promoted from the tamlo vorrel scooter to'
heard 1 'promoted from the tamlo vorrel psychedelic dune buggy  to'
heard 1 'say2 " Which sets a new record."$'
heard 5 ' end$'
[ $took -lt 5000000 ] || { echo "A career takes half a second where nobody else works."; exit 1; }
