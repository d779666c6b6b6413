"""A game, analysis and a finished position by python-chess.

usage: python_chess_game.py PROTOCOL DIRECTORY: uci or xboard, and the directory of the engine with
its files. Tells what was seen.
"""

import sys

import chess
import chess.engine

PROTOCOL, DIRECTORY = sys.argv[1:]
start = {"uci": chess.engine.SimpleEngine.popen_uci,
         "xboard": chess.engine.SimpleEngine.popen_xboard}[PROTOCOL]

with start("./tarquelin", cwd=DIRECTORY, timeout=30) as engine:
    board = chess.Board()
    while not board.is_game_over(claim_draw=True):
        played = engine.play(board, chess.engine.Limit(time=0.05), game=DIRECTORY)
        if played.resigned:
            break
        board.push(played.move)
    print(board.ply(), "plies,", board.result(claim_draw=True))
    seen = engine.analyse(chess.Board(), chess.engine.Limit(depth=10))
    print("analysis: depth", seen["depth"], seen["score"])
    mated = chess.Board("rnb1kbnr/pppp1ppp/8/4p3/6Pq/5P2/PPPPP2P/RNBQKBNR w KQkq - 1 3")
    print("finished position:", engine.analyse(mated, chess.engine.Limit(time=0.1)).get("score"))
