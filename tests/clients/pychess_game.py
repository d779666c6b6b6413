"""Games, analysis and the test of a new engine by PyChess' own classes, without its windows.

usage: pychess_game.py PROTOCOL DIRECTORY INTERFACE: uci, "xboard 1" or "xboard 2", the directory of the
engine with its files, shipped or classic. Ends with status 0 when all went well, and tells what was
played.
"""

import asyncio
import contextlib
import os
import signal
import sys
import tempfile

PROTOCOL, DIRECTORY, INTERFACE = sys.argv[1], os.path.abspath(sys.argv[2]), sys.argv[3]
# PyChess keeps its list of engines where it must not be ours to change.
HOME = tempfile.mkdtemp()
for variable in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"):
    os.environ[variable] = HOME

import gi  # noqa: E402

gi.require_version("Gtk", "3.0")
gi.require_version("GtkSource", "3.0")

from pychess.Players import engineNest  # noqa: E402
from pychess.System import conf  # noqa: E402
from pychess.Utils import const  # noqa: E402
from pychess.Utils.Board import Board  # noqa: E402
from pychess.Utils.GameModel import GameModel  # noqa: E402
from pychess.Utils.TimeModel import TimeModel  # noqa: E402
from pychess.Variants import variants  # noqa: E402

engineNest.ENGINES_LIST = []  # the engines that PyChess looks for on the system by itself
SECONDS, GAIN = 4, 0.1
LONGEST = 300  # seconds for a game
KINGS_MOVES = "8/5k2/3p4/1p1Pp2p/pP2Pp1P/P4P1K/8/8 w - - 0 1"


def engine_entry():
    command = os.path.join(DIRECTORY, "tarquelin")
    entry = {"name": "Tarquelin", "command": command, "workingDirectory": DIRECTORY,
             "md5": engineNest.md5_sum(command), "level": 20, "country": "unknown"}
    if PROTOCOL == "uci":
        entry["protocol"] = "uci"
    else:
        entry.update(protocol="xboard", protover=int(PROTOCOL[-1]), analyze=True)
    return entry


def told(future, value):
    """PyChess may say a thing more than once."""
    if not future.done():
        future.set_result(value)


def asked_by_the_window():
    """The protocols that the window for engines finds in a program before it takes it."""
    command = [os.path.join(DIRECTORY, "tarquelin")]
    return [name for name, ask in (("uci", engineNest.is_uci), ("xboard", engineNest.is_cecp))
            if ask(command)]


async def discover():
    """Adds the engine as the window for engines does, and waits for what comes of it."""
    found = asyncio.get_running_loop().create_future()
    discoverer = engineNest.discoverer
    discoverer.engines = [dict(engine_entry(), recheck=True)]
    discoverer.connect("engine_discovered", lambda d, name, engine: told(found, engine))
    discoverer.connect("engine_failed", lambda d, name, engine: told(found, None))
    discoverer.discover()
    engine = await asyncio.wait_for(found, LONGEST)
    assert engine is not None, "PyChess does not take the engine"
    return len(engine.get("options", []))


def end(player):
    """PyChess' own way fails in Python 3.11, mostly."""
    with contextlib.suppress(ProcessLookupError):
        os.kill(player.engine.pid, signal.SIGKILL)


async def game():
    model = GameModel(TimeModel(SECONDS, GAIN))
    players = [await engineNest.discoverer.initPlayerEngine(
        engine_entry(), side, 20, variants[const.NORMALCHESS], SECONDS, GAIN)
        for side in (const.WHITE, const.BLACK)]
    ended = asyncio.get_running_loop().create_future()
    model.connect("game_ended", lambda m, reason: told(ended, reason))
    model.setPlayers(players)
    model.start()
    reason = await asyncio.wait_for(ended, LONGEST)
    names = {name for name in dir(const) if name.isupper() and getattr(const, name) == reason
              and name.startswith(("WON_", "DRAW_", "WHITE_", "BLACK_", "ABORTED", "UNKNOWN"))}
    for player in players:
        end(player)
    return model.ply, names


async def analysis():
    engine = await engineNest.discoverer.initAnalyzerEngine(
        engine_entry(), const.ANALYZING, variants[const.NORMALCHESS])
    seen = asyncio.get_running_loop().create_future()

    def look(_, lines):
        if lines and lines[0] and int(lines[0][3] or 0) >= 10:
            told(seen, lines[0])
    engine.connect("analyze", look)
    model = GameModel()
    model.boards = [Board(setup=KINGS_MOVES)]
    engine.setOptionInitialBoard(model)
    engine.start(None, set())
    line = await asyncio.wait_for(seen, LONGEST)
    end(engine)
    if not line[1][0].startswith("h3"):
        print("another position was analysed")
        # PyChess sets it up when it has said "analyze", and then the classic interface does not hear.
        assert INTERFACE == "classic"
    return line


async def main():
    conf.set("book_depth_max", 0)
    conf.set("max_analysis_spin", LONGEST)  # else three seconds, at the lowest priority
    print("the window would find:", " ".join(asked_by_the_window()) or "nothing")
    print("options:", await discover())
    ply, reason = await game()
    print("game:", ply, "plies,", "/".join(sorted(reason)))
    assert not any("DIED" in name or "ADJUDICATION" in name or "CALLFLAG" in name
                   for name in reason), "the game was not played to its end"
    _, moves, score, depth, speed = await analysis()
    print("analysis:", "depth", depth, "score", score, "speed", speed, moves[0])


asyncio.get_event_loop().run_until_complete(asyncio.wait_for(main(), 3 * LONGEST))
os._exit(0)
