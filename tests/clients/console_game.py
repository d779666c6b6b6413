"""A game of the engine against itself at the console, saved as PGN.

usage: console_game.py DIRECTORY FILE: the directory of the engine with its files, and the file to
write there. Tells how the game ended.
"""

import os
import pty
import re
import sys

DIRECTORY, FILE = sys.argv[1:]

process, terminal = pty.fork()
if process == 0:
    os.chdir(DIRECTORY)
    os.environ.update(TERM="dumb", LC_ALL="C")
    os.execv("./tarquelin", ["./tarquelin"])


def read_through(pattern):
    text = ""
    while not re.search(pattern, text):
        text += os.read(terminal, 4096).decode()
    return text


def answer(line, pattern):
    os.write(terminal, (line + "\n").encode())
    return read_through(pattern)


PROMPT = r"(White|Black) \d+> $"
read_through(PROMPT)
answer("strength 1400", PROMPT)
game = answer("demo", PROMPT)
saved = answer("save " + FILE, PROMPT)
os.write(terminal, b"quit\n")
os.waitpid(process, 0)
end = re.findall(r"^(?:1-0|0-1|1/2-1/2) \{.*\}", game, re.MULTILINE)
print(len(re.findall("^Tarquelin plays ", game, re.MULTILINE)), "plies,", end[-1] if end else "no end")
sys.exit(0 if end and "The game is in" in saved else 1)
