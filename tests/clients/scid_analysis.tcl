# Analysis by Scid's procedures for engines, without its windows.
#
# usage: scid_analysis.tcl PROCEDURES PROTOCOL DIRECTORY INTERFACE: the file of these procedures, uci
# or xboard, the directory with the engine and its files, shipped or classic. Tells what Scid
# understood; status 1 when something did not come.

lassign $argv procedures protocol directory interface
namespace eval uci {} ;# whose window is not loaded
source $procedures
cd $directory

set DEPTH 8
set LONGEST 60000 ;# milliseconds for each answer
set lines 0       ;# of variations that were seen, by the highest number of one
set seen {}       ;# the deepest line
set event {}

proc understood {message} {
    lassign $message kind data
    if {$kind eq "InfoPV"} {
        lassign $data number depth
        set ::lines [expr {max($::lines, $number)}]
        if {$depth < $::DEPTH} return
        set ::seen $data
    }
    set ::event $kind
}

proc await {kind} {
    set late [after $::LONGEST [list set ::event late]]
    while {$::event ne $kind} {
        if {$::event eq "late" || $::event eq "InfoDisconnected"} {
            puts "waited for $kind in vain"
            exit 1
        }
        vwait ::event
    }
    after cancel $late
    set ::event {}
}

# A line of that depth, some lines of it or one, and the end of the analysis.
proc analyse {position} {
    set ::lines 0
    set start [clock milliseconds]
    ::engine::send 1 Go [list $position]
    await InfoPV
    set time [expr {[clock milliseconds] - $start}]
    ::engine::send 1 StopGo
    await InfoReady
    lassign $::seen number depth - nodes nps - - shown score type - pv
    puts "depth $depth score $score $type, $::lines lines, time $shown where $time ms had passed, $pv"
}

::engine::setLogCmd 1
::engine::connect 1 understood ./tarquelin {} $protocol
await InfoConfig
puts "[llength $::engconn(options_1)] options and features"
::engine::send 1 NewGame {analysis post_pv}
await InfoReady
analyse "position startpos moves e2e4 e7e5"
if {$protocol eq "uci"} {
    ::engine::send 1 SetOptions {{MultiPV 3}}
    await InfoConfig
}
# A pawn is taken in passing, and can be taken. Classic, that is not understood.
analyse "position fen 4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 2 moves e5d6 e8d7"
if {![string match {e1?? d7d6*} [lindex $seen end]]} {
    puts "the second position is another"
    exit [expr {$interface ne "classic"}]
}
::engine::close 1
exit 0
