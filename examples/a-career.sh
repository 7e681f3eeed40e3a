#!/bin/sh
# A whole career, from the first order to the record, in five days: scooter, buggy and van, and at the
# end of every day but the last the player quits and goes on the next morning.
#     examples/a-career.sh PROGRAM [DOCUMENTS]
# PROGRAM is tamlo-rehearse; DOCUMENTS, a fresh temporary folder when left out, is where the career
# is kept from day to day. The traces of the days come one after the other.
set -e
rehearse=$1
documents=$2
if [ -z "$documents" ]; then
    documents=$(mktemp -d)
    trap 'rm -rf "$documents"' EXIT
fi

day() { "$rehearse" --documents "$documents" -; }

day <<'DAY'
clock 2015-03-10 09:00:00
press enter enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 right enter 4 5 right
press enter 4 5 right enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 left
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5
press enter enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 left enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter right enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4
press 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter enter 4 5 enter 4 5 enter 4 5
press enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left
press enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter right enter 4 5 enter 4 5 enter 4 5 enter 4 5 right enter 4 5 right enter 4
press 5 enter 4 5 enter 4 5 right enter 4 5 enter enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 right enter 4 5 right enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 right enter 4
press 5 enter enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter right enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 left enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter right enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5
press enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 left
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5
press down enter
DAY

day <<'DAY'
clock 2015-03-11 09:00:00
press enter enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 left enter 4
press 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter right enter 4 5 enter 4 5 enter
press 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter right enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter right enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5
press enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter 4 5 right enter 4 5 enter 4 5 enter 4 5 right enter 4 5
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 right enter 4 5 enter 4 5 enter 4 5 enter
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left
press enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5
press enter 4 5 left enter 4 5 enter 4 5 enter right enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left
press enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter 4 5 enter 4 5
press enter 4 5 enter 4 5 enter enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4
press 5 left enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 enter 4
press 5 enter 4 5 enter 4 5 enter 4 5 enter 4 5 left enter 4 5 enter right enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter
press 5 5 enter enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 down enter
DAY

day <<'DAY'
clock 2015-03-12 09:00:00
press enter right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5
press 5 enter enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter
press right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 right enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter right enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter right enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 left enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 left enter 5 5 enter enter 5 5 enter 5 5 left enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 left enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press right enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 left
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 right enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 right enter 5 5 enter 5 5 enter 5 5 down enter
DAY

day <<'DAY'
clock 2015-03-13 09:00:00
press enter enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter right enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press right enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press right enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5
press 5 enter 5 5 enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 right enter 5
press 5 left enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter right enter 5 5 enter 5 5 right enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 left enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 right enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5
press 5 enter enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter
press 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter enter 5 5
press left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 left enter 5 5
press enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter 5 5 enter enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 left enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 right enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 down enter
DAY

day <<'DAY'
clock 2015-03-14 09:00:00
press enter right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter
press 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter
press 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter
press 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter
press 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 right enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 right enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 enter right enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6
press 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 right enter 6 5 enter 6 5 enter 6 5 right enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 left enter 6 5 enter 6 5 enter 6 5
press enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5 enter 6 5
press enter 6 5 shift a l enter enter
DAY
