// What a page of games looks like and what it does when it is used.
#pragma once

// Readable on a phone, on paper, and without colours.
constexpr const char* PAGE_STYLE = R"(
:root{color-scheme:light}
body{font:16px/1.5 system-ui,sans-serif;margin:0 auto;max-width:70em;padding:0 .8em 3em;color:#111;
background:#fff}
h1{font-size:1.4em;margin:.8em 0 .2em}
.note{color:#444;margin:.2em 0 1em}
.list{overflow-x:auto}
table{border-collapse:collapse;width:100%;font-size:.93em}
th,td{text-align:left;padding:.25em .6em .25em 0;border-bottom:1px solid #ccc;vertical-align:top}
td.n,th.n{text-align:right;white-space:nowrap}
a{color:#0b4a8f}
.live-only{display:none}
.live .live-only{display:inline}
details{border-top:2px solid #111;margin-top:1em}
summary{padding:.5em 0;cursor:pointer;font-weight:600}
summary span{font-weight:400;color:#333}
.game{display:grid;grid-template-columns:minmax(16em,24em) 1fr;gap:.4em 1.4em}
.seen{position:sticky;top:.4em;align-self:start}
.board{width:100%;height:auto;display:block;border:1px solid #111;touch-action:pan-y}
.sl{fill:#f4f4f0}.sd{fill:#aebcc4}
.w path{fill:#fff;stroke:#000;stroke-width:1.6;stroke-linejoin:round}
.b path{fill:#222;stroke:#000;stroke-width:1.6;stroke-linejoin:round}
.w path.l,.b path.l{fill:none;stroke-linecap:round}.b path.l{stroke:#fff}
.names text{font-size:9px;fill:#444}
.last rect{fill:none;stroke:#111;stroke-width:3;stroke-dasharray:9 4}
.keys{display:none;gap:.3em;margin:.4em 0}
.live .keys{display:flex}
.keys button{flex:1;font:inherit;padding:.45em 0;border:1px solid #111;background:#f4f4f0;
border-radius:.2em}
.said{min-height:1.5em;margin:.3em 0;font-weight:600}
.curve{width:100%;height:auto;display:block;border:1px solid #111;margin:.3em 0 .6em;cursor:pointer}
.curve text{font-size:14px;fill:#111}
.p1{fill:#fff}.p2{fill:#e9e9e9}.p3{fill:#d2d2d2}
.area{fill:#7f8f99;fill-opacity:.45;stroke:#111;stroke-width:1.5}
.half{stroke:#111;stroke-width:.7;stroke-dasharray:3 3;fill:none}
.now{stroke:#111;stroke-width:2;fill:none}
.s1{fill:#fff;stroke:#6b5900;stroke-width:2}.s2{fill:#a04000;stroke:#fff;stroke-width:1}
.s3{stroke:#b00020;stroke-width:3.5;fill:none}
.moves{overflow-wrap:anywhere}
.m{color:inherit;text-decoration:none;padding:0 .1em;border-radius:.15em}
.moves>.m{font-weight:600}
.live .m{cursor:pointer}
.m:hover{text-decoration:underline}
.k1{color:#6b5900}.k2{color:#a04000}.k3{color:#b00020}
.m.here,.m:target{background:#111;color:#fff}
.better,.says{display:block;margin:.1em 0 .3em;padding-left:.7em;border-left:3px solid}
.says.k1,.says.k2,.says.k3{font-weight:600}
.better{border-left-style:dashed}
.says+.better{margin-top:-.3em}
.own{color:#333;font-style:italic}
.e{color:#444;font-size:.85em}
@media(max-width:46em){
.game{display:block}
.opening,.date,thead{display:none}
tr{display:block;border-bottom:1px solid #ccc;padding:.4em 0}
td,td.n{display:inline;white-space:normal;border:0;padding:0 .4em 0 0}
.white::after{content:" \2013"}
.accuracy::before{content:"\A Accuracy ";white-space:pre}
.turn::before{content:"\A Turning point ";white-space:pre}
.kept::before{content:"\A";white-space:pre}
.board{width:min(100%,46vh);margin:0 auto}
.seen{top:0;background:#fff;z-index:1}
.said,.keys{margin:.2em 0}
.m{scroll-margin-top:calc(46vh + 7em)}
.curve text{font-size:20px}
}
@media(max-width:46em) and (max-height:36em){.seen{position:static}}
@media print{.keys{display:none}details{break-inside:avoid-page}}
)";

// A game is a section with data-start, the men of its start; each move that can be shown is a link
// with data-d, what it changes on the board. Moves of a variation stand in a part with data-at, the
// number of moves of the game before it.
constexpr const char* PAGE_SCRIPT = R"(
(function () {
"use strict";
var NS = "http://www.w3.org/2000/svg", current = null;
function place(name) { return (8 - name.charAt(1)) * 8 + name.charCodeAt(0) - 97; }
function menOf(start) {
  var men = [];
  start.replace(/\//g, "").split("").forEach(function (c) {
    if (c >= "1" && c <= "8") for (var i = 0; i < +c; i++) men.push("."); else men.push(c);
  });
  return men;
}
function links(node) { return Array.prototype.slice.call(node.querySelectorAll("a.m")); }
function Game(node) {
  var all = links(node), game = this;
  this.node = node;
  this.turned = false;
  this.at = null;
  this.lines = [];
  this.main = all.filter(function (a) { return !a.closest("[data-at]"); });
  this.addLine(this.main, 0);
  Array.prototype.forEach.call(node.querySelectorAll("[data-at]"), function (part) {
    game.addLine(links(part), +part.getAttribute("data-at"));
  });
  all.forEach(function (a) {
    a.addEventListener("click", function (e) { e.preventDefault(); game.show(a); });
  });
  this.listen();
  this.show(null);
}
Game.prototype.addLine = function (moves, at) {
  var line = { moves: moves, at: at };
  moves.forEach(function (a, i) { a.line = line; a.place = i; });
};
Game.prototype.menAt = function (a) {
  var men = menOf(this.node.getAttribute("data-start")), made = [];
  if (a) made = this.main.slice(0, a.line.at).concat(a.line.moves.slice(0, a.place + 1));
  made.forEach(function (m) {
    var d = m.getAttribute("data-d");
    for (var i = 0; i < d.length; i += 3) men[place(d.substr(i, 2))] = d.charAt(i + 2);
  });
  return men;
};
Game.prototype.put = function (group, name, sq, more) {
  var node = document.createElementNS(NS, name), turned = this.turned ? 63 - sq : sq, key;
  node.setAttribute("x", turned % 8 * 45);
  node.setAttribute("y", (turned >> 3) * 45);
  for (key in more) node.setAttribute(key, more[key]);
  group.appendChild(node);
};
Game.prototype.draw = function (a) {
  var game = this, men = this.menAt(a), figures = this.node.querySelector(".men"),
      last = this.node.querySelector(".last"), d = a ? a.getAttribute("data-d") : "";
  this.node.querySelector(".names").setAttribute("href", this.turned ? "#names-turned" : "#names");
  figures.textContent = last.textContent = "";
  men.forEach(function (man, sq) {
    if (man === ".") return;
    var white = man === man.toUpperCase();
    game.put(figures, "use", sq, { href: "#" + (white ? "w" : "b") + man.toUpperCase() });
  });
  for (var i = 0; i < Math.min(d.length, 6); i += 3)
    this.put(last, "rect", place(d.substr(i, 2)), { width: 45, height: 45 });
};
Game.prototype.show = function (a) {
  var curve = this.node.querySelector(".curve"), n = curve.getAttribute("data-n"),
      here = this.node.querySelector(".here");
  this.at = a;
  current = this;
  this.draw(a);
  if (here) here.classList.remove("here");
  if (a) a.classList.add("here");
  // Where the board stays in sight, the move comes into it.
  if (a && getComputedStyle(this.node.querySelector(".seen")).position === "sticky")
    a.scrollIntoView({ block: "nearest" });
  var ply = !a ? 0 : a.line.moves === this.main ? a.place + 1 : a.line.at;
  var x = (600 * ply / Math.max(n, 1)).toFixed(1);
  curve.querySelector(".now").setAttribute("d", "M" + x + " 0V150");
  this.node.querySelector(".said").textContent = a ? a.title || a.textContent : "Start";
};
Game.prototype.step = function (how) {
  var a = this.at, main = this.main, moves = a ? a.line.moves : main, next = a ? a.place : -1;
  if (how === "first") return this.show(null);
  if (how === "last") return this.show(main[main.length - 1] || null);
  next += how === "next" ? 1 : -1;
  if (next >= moves.length) return;
  if (next >= 0) return this.show(moves[next]);
  this.show(a && a.line.at > 0 ? main[a.line.at - 1] : null);
};
Game.prototype.listen = function () {
  var game = this, board = this.node.querySelector(".board"),
      curve = this.node.querySelector(".curve"), from = 0;
  Array.prototype.forEach.call(this.node.querySelectorAll("button"), function (button) {
    button.addEventListener("click", function () {
      var how = button.getAttribute("data-k");
      if (how !== "turn") return game.step(how);
      game.turned = !game.turned;
      game.show(game.at);
    });
  });
  board.addEventListener("touchstart", function (e) { from = e.changedTouches[0].clientX; });
  board.addEventListener("touchend", function (e) {
    var way = e.changedTouches[0].clientX - from;
    if (Math.abs(way) < 30) return;
    e.preventDefault();
    game.step(way < 0 ? "next" : "back");
  });
  board.addEventListener("click", function (e) {
    var box = board.getBoundingClientRect();
    game.step(e.clientX < box.left + box.width / 3 ? "back" : "next");
  });
  curve.addEventListener("click", function (e) {
    var box = curve.getBoundingClientRect(), n = +curve.getAttribute("data-n");
    e.preventDefault();
    game.show(game.main[Math.round((e.clientX - box.left) / box.width * n) - 1] || null);
  });
};
function wake(details) {
  if (details.game || !details.open) return;
  details.game = new Game(details.querySelector(".game"));
  current = details.game;
}
function openTarget() {
  var target = location.hash ? document.getElementById(location.hash.slice(1)) : null,
      details = target ? target.closest("details") : null;
  if (!details) return;
  details.open = true;
  wake(details);
  if (target.classList.contains("m")) details.game.show(target);
  details.scrollIntoView();
}
document.body.classList.add("live");
Array.prototype.forEach.call(document.querySelectorAll("details"), function (details) {
  details.addEventListener("toggle", function () { wake(details); });
  wake(details);
});
window.addEventListener("hashchange", openTarget);
openTarget();
document.addEventListener("keydown", function (e) {
  var how = { ArrowLeft: "back", ArrowRight: "next", Home: "first", End: "last" }[e.key];
  if (!how || !current || e.ctrlKey || e.altKey || e.metaKey) return;
  e.preventDefault();
  current.step(how);
});
})();
)";
