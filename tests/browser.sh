#!/bin/sh
# Opens the page of annotated games in a real browser, plays through every game, and looks at the
# board; then reads it in a browser that runs no scripts.
#
# usage: browser.sh TARQUELIN_ANNOTATE SCRATCH_DIRECTORY [PICTURE]
# Ends with 77 where there is no browser. With PICTURE, a full path, all that it does is to write
# the picture of docs/annotate.md there.
set -eu
annotate=$1
scratch=$2
picture=${3-}

browser=$(command -v chromium || command -v chromium-browser || command -v google-chrome) || {
    echo "There is no Chromium."
    exit 77
}
rm -rf "$scratch"
mkdir -p "$scratch"
cd "$scratch"

# browse PAGE OPTION...
browse() {
    page_url=file://$PWD/$1
    shift
    HOME=$PWD timeout 120 "$browser" --headless --no-sandbox --disable-gpu --disable-dev-shm-usage \
        --allow-file-access-from-files --virtual-time-budget=20000 "$@" "$page_url" 2>browser-log || {
        cat browser-log
        exit 1
    }
}

if [ -n "$picture" ]; then
    cat >opera.pgn <<'END'
[Event "At the opera"]
[Site "Paris"]
[Date "1858.11.02"]
[White "Paul Morphy"]
[Black "Duke Karl, Count Isouard"]
[Result "1-0"]

1. e4 e5 2. Nf3 d6 3. d4 Bg4 4. dxe5 Bxf3 5. Qxf3 dxe5 6. Bc4 Nf6 7. Qb3 Qe7 8. Nc3 c6
9. Bg5 b5 10. Nxb5 cxb5 11. Bxb5+ Nbd7 12. O-O-O Rd8 13. Rxd7 Rxd7 14. Rd1 Qe6
15. Bxd7+ Nxd7 16. Qb8+ Nxb8 17. Rd8# 1-0
END
    "$annotate" opera.pgn
    # At the turning point.
    echo '<script>document.querySelector(".k3").click()</script>' >>opera-annotated.html
    browse opera-annotated.html --hide-scrollbars --window-size=1000,850 --screenshot="$picture"
    exit
fi

# Castling, en passant, a promotion, a variation; a start with Black to move; a game that is kept.
cat >games.pgn <<'END'
[White "Anna <b>"]
[Black "Berta"]
[Result "0-1"]

1. e4 e5 2. Nf3 Nc6 3. Bc4 Nd4 4. Nxe5 Qg5 5. Nxf7 Qxg2 6. Rf1 Qxe4+ 7. Be2 Nf3# 0-1

[White "Carla"]
[Black "Dora"]
[Result "*"]

1. e4 c5 2. e5 d5 3. exd6 Qxd6 4. Nf3 Nf6 5. Be2 g6 6. O-O Bg7 7. a4 O-O 8. a5 b5 9. axb6 Bb7
10. bxa7 Nc6 11. d3 Rxa7 *

[White "Emma"]
[Black "Fred"]
[FEN "4k3/P7/8/8/8/8/7p/4K3 b - - 0 50"]
[Result "1/2-1/2"]

50... h1=N 51. a8=Q+ Kf7 1/2-1/2

[White "Gero"]
[Black "Hans"]

1. e4 Qh5 *
END
"$annotate" --nodes 2000 games.pgn >out 2>&1 || true
page=games-annotated.html
grep -q '</html>' $page || { cat out; exit 1; }
if sed 's,http://www.w3.org/2000/svg,,' $page | grep -E 'https?:|src='; then
    echo "The page wants something from the network."
    exit 1
fi

# What watches stands before all else, what plays behind it.
cat >before.html <<'END'
<script>
var faults = [];
window.onerror = function (what) { faults.push(what); };
console.error = function (what) { faults.push(what); };
</script>
END
cat >behind.html <<'END'
<script>
function expect(what, is, wanted) {
  if (is !== wanted) faults.push(what + ": " + is + ", not " + wanted);
}
function board(game, turned) {
  var men = {}, text = "", r, f;
  game.querySelectorAll(".men use").forEach(function (man) {
    var at = man.getAttribute("x") / 45 + man.getAttribute("y") / 45 * 8, id = man.getAttribute("href");
    men[turned ? 63 - at : at] = id[1] === "w" ? id[2] : id[2].toLowerCase();
  });
  for (r = 0; r < 64; r++) text += (r && r % 8 === 0 ? "/" : "") + (men[r] || ".");
  return text.replace(/\.+/g, function (empty) { return empty.length; });
}
function key(name) { document.dispatchEvent(new KeyboardEvent("keydown", { key: name, bubbles: true })); }
function swipe(node, from, to) {
  [["touchstart", from], ["touchend", to]].forEach(function (s) {
    var touch = new Touch({ identifier: 1, target: node, clientX: s[1], clientY: 9 });
    node.dispatchEvent(new TouchEvent(s[0], { changedTouches: [touch], bubbles: true, cancelable: true }));
  });
}
var ends = ["r1b1kbnr/pppp1Npp/8/8/4q3/5n2/PPPPBP1P/RNBQKR2",
            "5rk1/rb2ppbp/2nq1np1/2p5/8/3P1N2/1PP1BPPP/RNBQ1RK1", "Q7/5k2/8/8/8/8/8/4K2n"];
var starts = ["rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
              "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", "4k3/P7/8/8/8/8/7p/4K3"];
document.querySelectorAll("details").forEach(function (details, i) {
  var game = details.querySelector(".game"), first, better, here;
  details.open = true;
  details.dispatchEvent(new Event("toggle"));
  key("Home");
  expect("start of " + i, board(game), starts[i]);
  for (var n = 0; n < 30; n++) key("ArrowRight");
  expect("end of " + i, board(game), ends[i]);
  here = game.querySelector(".here").getBoundingClientRect();
  expect("sight of the end of " + i, here.top >= 0 && here.bottom <= innerHeight + 1, true);
  for (n = 0; n < 30; n++) key("ArrowLeft");
  expect("start again of " + i, board(game), starts[i]);
  swipe(game.querySelector(".board"), 200, 100);
  first = board(game);
  expect("swipe of " + i, first === starts[i], false);
  game.querySelector("[data-k=turn]").click();
  expect("turned board of " + i, board(game, true), first);
  game.querySelector("[data-k=turn]").click();
  game.querySelector("[data-k=last]").click();
  expect("button of " + i, board(game), ends[i]);
  game.querySelector(".moves > .m").click();
  expect("click of " + i, board(game), first);
  better = game.querySelector("[data-at] .m");
  if (better) {
    better.click();
    expect("variation of " + i, game.querySelector(".here") === better, true);
    key("ArrowLeft");
    expect("back from it in " + i, game.querySelector("[data-at] .here"), null);
  }
  expect("curve of " + i, game.querySelectorAll(".curve .area").length, 1);
});
expect("games", document.querySelectorAll("details").length, 3);
expect("rows", document.querySelectorAll("tbody tr").length, 4);
expect("variations", document.querySelectorAll("[data-at]").length > 0, true);
document.title = faults.length ? "FAULTS " + faults.join("; ") : "PLAYED";
</script>
END
{
    sed '/<head>/q' $page | sed 's/<head>.*/<head>/'
    cat before.html
    sed -n '/<head>/,$p' $page | sed '1s/.*<head>//;/<\/body>/d'
    cat behind.html
    echo '</body></html>'
} >test.html
browse test.html --dump-dom >dom
grep -o -E '<title>(PLAYED|FAULTS)[^<]*' dom
grep -q '<title>PLAYED' dom

# A frame that may not run scripts, looked at from without.
cat >frame.html <<'END'
<!DOCTYPE html>
<iframe sandbox="allow-same-origin" width="390" height="800" src="games-annotated.html"></iframe>
<script>
onload = function () {
  var page = document.querySelector("iframe").contentDocument, seen = [];
  page.querySelectorAll("details").forEach(function (details) { details.open = true; });
  [".live", ".keys", ".board", ".board .men", ".curve", ".moves", "tbody tr"].forEach(function (name) {
    var shown = Array.prototype.filter.call(page.querySelectorAll(name), function (node) {
      return node.getBoundingClientRect().height > 20;
    });
    seen.push(name + " " + shown.length);
  });
  document.title = "READ " + seen.join(", ");
};
</script>
END
browse frame.html --dump-dom >dom
grep -o '<title>[^<]*' dom
grep -q '<title>READ .live 0, .keys 0, .board 3, .board .men 3, .curve 3, .moves 3, tbody tr 4<' dom
