"""A game of the engine against itself at the console.

usage: console_game.py DIRECTORY INTERFACE FILE: the directory of the engine with its files, shipped
or classic, and the file to write there as PGN, which classic does not know. Tells how the game ended.
"""

import os
import pty
import re
import sys

DIRECTORY, INTERFACE, FILE = sys.argv[1:]

process, terminal = pty.fork()
if process == 0:
    os.chdir(DIRECTORY)
    os.environ.update(TERM="dumb", LC_ALL="C")
    os.execv("./tarquelin", ["./tarquelin"])


def answer(line, pattern):
    os.write(terminal, (line + "\n").encode())
    return read_through(pattern)


def read_through(pattern):
    text = ""
    while not re.search(pattern, text, re.MULTILINE):
        text += os.read(terminal, 4096).decode()
    return text


RESULT = r"^(?:1-0|0-1|1/2-1/2) \{.*\}"
if INTERFACE == "classic":
    read_through("Pondering = ")
    os.write(terminal, b"sd 6\n")
    game = answer("demo", RESULT)
    plies = len(re.findall("^move ", game, re.MULTILINE))
    saved = True
else:
    prompt = r"(White|Black) \d+> \Z"
    read_through(prompt)
    answer("strength 1400", prompt)
    game = answer("demo", prompt)
    plies = len(re.findall("^Tarquelin plays ", game, re.MULTILINE))
    saved = "The game is in" in answer("save " + FILE, prompt)
os.write(terminal, b"quit\n")
os.waitpid(process, 0)
end = re.findall(RESULT, game, re.MULTILINE)
print(plies, "plies,", end[-1] if end else "no end")
sys.exit(0 if end and saved else 1)
