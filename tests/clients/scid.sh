#!/bin/sh
# The engine by Scid's own procedures for engines. usage: scid.sh BUILD_DIRECTORY
set -eu
. "$(dirname "$0")/common.sh"
need scid tclsh
procedures=/usr/share/scid/tcl/enginecomm.tcl
[ -f $procedures ] || {
    echo "skipped scid: there is no $procedures"
    exit 0
}

for interface in shipped classic; do
    for protocol in uci xboard; do
        try "Scid, $protocol, $interface" timeout 300 tclsh "$here/scid_analysis.tcl" $procedures \
            $protocol "$(engine_directory $interface)" $interface
    done
done
exit $failed
