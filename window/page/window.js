// The page of a drawing: shows what the host tells, and tells the host what the person does.
'use strict';
(() => {
const el = id => document.getElementById(id);
const root = document.documentElement, canvas = el('drawing'), input = el('command');
const ctx = canvas.getContext('2d', {alpha: false});
const dark = matchMedia('(prefers-color-scheme: dark)');

// --- the session ------------------------------------------------------------------------------
// This page's name, and the one that it had before it was loaded again: it takes that one's place.
const page = [...crypto.getRandomValues(new Uint32Array(4))].map(n => n.toString(16)).join('');
let was = '';
try {
  was = sessionStorage.getItem('page') || '';
  sessionStorage.setItem('page', page);
} catch { /* then it is another page */ }
let now = {state: 'busy', prompt: '', wants: 'words'};  // what the host told last
let waiting = [];                 // requests that are not sent yet
let running = false, ready = false, lost = false;
let names = [];                   // of commands, for Tab
let afterwards = null;            // done once with the next answer

async function post(request) {
  const answer = await fetch('api', {method: 'POST', headers: {'Content-Type': 'application/json'},
                                     body: JSON.stringify({page, ...request})});
  const body = await answer.json();
  if (answer.status === 409) throw Object.assign(new Error(body.error), {other: true});
  if (!answer.ok) body.error = body.error || answer.statusText;
  return body;
}

// Requests that change something go one after the other; meanwhile the state is busy.
function send(request) {
  if (lost) return;
  waiting.push(request);
  showState();
  if (!running) pump();
}

async function pump() {
  running = true;
  while (waiting.length && !lost) {
    try {
      take(await post(waiting[0]));
    } catch (problem) {
      loseTouch(problem);
    }
    waiting.shift();
  }
  running = false;
  showState();
}

function showState() {
  const busy = waiting.length > 0 || !ready || lost && now.state !== 'ended';
  root.dataset.state = busy ? 'busy' : now.state === 'ended' ? 'ended' : now.state;
}

function loseTouch(problem) {
  lost = true;
  waiting = [];
  if (problem.other)
    notice('This drawing is open in another page.\nOnly one page at a time works on it.',
           'Work here instead', () => open(true));
  else
    notice('The session cannot be reached: it has ended, or the connection is gone.\n' +
           'The terminal that started it tells.', 'Try again', () => open(false));
}

function notice(text, button, action) {
  el('what').textContent = text;
  el('again').textContent = button || '';
  el('again').hidden = !button;
  el('again').onclick = action;
  el('notice').hidden = false;
  if (button) el('again').focus();
}

function open(takesOver) {
  lost = ready = false;
  waiting = [];
  el('notice').hidden = true;
  el('transcript').textContent = el('script').textContent = '';
  send({do: 'open', takesOver, was});
  input.focus();
}

// --- what the host tells ----------------------------------------------------------------------
function take(news) {
  if (news.error) {
    say(news.error);
    if (!news.state) return;
  }
  now = news;
  if (news.commands) names = news.commands;
  if (news.transcript) {
    append(el('transcript'), news.transcript);
  }
  if (news.script) append(el('script'), news.script);
  if (news.sheet) loadSheet(news.sheet);
  else if (news.drawing === null) { loadSheet(null); listGroups([], []); }
  else if (news.entities) changeSheet(news);
  if (news.state === 'ready') chosen = [];
  if (news.chosen) chosen = news.chosen;
  else if (news.selected && !news.selected.length && news.state === 'asking' && !chosen.length) chosen = [...selected];
  select(news.selected || [...selected]);
  if (news.groups) listGroups(news.groups, news.strays);
  el('prompt').textContent = news.prompt;
  offerOptions(news.prompt);
  showSpaces(news.spaces || []);
  showDrawing();
  if (afterwards) afterwards();
  afterwards = null;
  if (news.state === 'ended') {
    lost = true;
    notice('The session has ended. This page can be closed.');
  }
  hover = null;
  lookSoon();
  paint();
}

function append(pre, text) {
  const most = 200000, all = pre.textContent + text;
  pre.textContent = pre === el('script') || all.length < most ? all : all.slice(-most / 2);
  pre.scrollTop = pre.scrollHeight;
}

function showDrawing() {
  const name = now.drawing ? now.drawing.replace(/^.*[\\/]/, '') : 'no drawing';
  el('name').textContent = (now.changed ? '\u2022 ' : '') + name;
  el('name').title = (now.drawing || '') + (now.changed ? '\nThere are changes that are not saved' : '');
  document.title = el('name').textContent + ' \u2013 drafthost';
  for (const button of document.querySelectorAll('[data-command^=VelmoGROUP][aria-pressed]'))
    button.ariaPressed = String((button.dataset.command === 'VelmoGROUPACTIVE') === now.grouping);
  el('empty').hidden = entities.size > 0;
  el('empty').textContent = !ready ? '' : now.drawing === null ?
    'No drawing is open: type OPEN or NEW' : 'Nothing is drawn in this space';
}

function listGroups(groups, strays) {
  const item = (parent, name, text, title) => {
    const child = document.createElement(name);
    child.textContent = text;
    if (title) child.className = title;
    parent.append(child);
    return child;
  };
  el('groups').replaceChildren(...groups.map(group => {
    const li = document.createElement('li');
    li.dataset.begin = group.begin;
    li.dataset.verdict = group.verdict;
    li.dataset.space = group.space;
    li.tabIndex = 0;
    item(li, 'i', '');
    item(li, 'span', 'Group ' + group.begin + ' ');
    item(li, 'small', group.verdict);
    item(li, 'span', (group.what || 'nothing') + (group.space === 'Model' ? '' : ' in ' + group.space), 'soft');
    if (group.reason) item(li, 'span', group.reason + '; ' + group.outlook, 'why');
    return li;
  }));
  el('strays').replaceChildren();
  for (const stray of strays) item(el('strays'), 'li', stray);
  const broken = groups.filter(group => group.verdict !== 'whole').length;
  el('count').textContent = groups.length + (broken ? ', ' + broken + ' not whole' : '');
  el('none').hidden = groups.length + strays.length > 0;
  el('repair').disabled = broken + strays.length === 0;
  markGroups();
}

function markGroups() {
  for (const li of el('groups').children) li.classList.toggle('on', selected.has(li.dataset.begin));
}

function showSpaces(spaces) {
  const shown = spaces.find(space => space.space === shownSpace);
  el('spaces').replaceChildren(...spaces.map(space => {
    const tab = document.createElement('button');
    tab.textContent = space.name;
    tab.role = 'tab';
    tab.ariaSelected = String(space === shown);
    tab.onclick = () => send({do: 'space', space: space.space});
    return tab;
  }));
  const current = spaces.find(space => space.current);
  el('elsewhere').hidden = !shown || shown === current;
  el('elsewhere').firstChild.textContent = 'Commands work in ' + (current ? current.name : 'no space') + '.';
  el('here').hidden = !shown || !shown.reachable;
  el('here').onclick = () => command('TILEMODE ' + (shown.model ? 1 : 0));
}

// --- the sheet --------------------------------------------------------------------------------
const kBatch = 4096;              // entities that are drawn at one go
let sheet = {scale: 1, left: 0, top: 297, box: [0, 0, 420, 297]}, shownSpace = 0;
let styles = [];
let entities = new Map();         // by handle: {h, b, p, t, batch, dead}
let batches = [];                 // {list, box, strokes}: in drawing order
let selected = new Set();
let view = {k: 1, x: 0, y: 0};    // pixels of a path unit, and where its origin is
let width = 0, height = 0, ratio = 1;
let colours = {};

function addEntity(entity) {
  let batch = batches[batches.length - 1];
  if (!batch || batch.list.length >= kBatch) {
    batch = {list: [], box: null, strokes: null};
    batches.push(batch);
  }
  entity.batch = batch;
  batch.list.push(entity);
  batch.strokes = null;
  entities.set(entity.h, entity);
}

function loadSheet(told) {
  styles = told ? told.styles : [];
  entities = new Map();
  batches = [];
  shownSpace = told ? told.space : 0;
  const same = told && sheet.space === told.space && sheet.of === now.drawing;
  const kept = same && told.scale === sheet.scale && told.left === sheet.left && told.top === sheet.top;
  sheet = told ? {...told, entities: null, of: now.drawing} : {scale: 1, left: 0, top: 297, box: [0, 0, 420, 297]};
  if (told) told.entities.forEach(addEntity);
  if (!kept) zoomTo(boxOf(sheet.box));
  else viewChanged();
  contentChanged();
}

function changeSheet(news) {
  styles.push(...news.styles);
  for (const handle of news.gone) {
    const entity = entities.get(handle);
    if (!entity) continue;
    entity.dead = true;
    entity.batch.strokes = null;
    entities.delete(handle);
  }
  for (const told of news.entities) {
    const entity = entities.get(told.h);
    if (!entity) { addEntity(told); continue; }
    Object.assign(entity, {b: told.b, p: told.p, t: told.t, strokes: null});
    entity.batch.strokes = null;
  }
  contentChanged();
}

// Path data of the same style drawn at one go is many times as fast as one by one.
function strokesOf(list) {
  const data = new Map();
  for (const entity of list) {
    for (let i = 0; entity.p && i < entity.p.length; i += 2) {
      const parts = data.get(entity.p[i]);
      if (parts) parts.push(entity.p[i + 1]); else data.set(entity.p[i], [entity.p[i + 1]]);
    }
  }
  return [...data].map(([style, parts]) => [style, new Path2D(parts.join(''))]);
}

function build(batch) {
  batch.list = batch.list.filter(entity => !entity.dead);
  batch.strokes = strokesOf(batch.list);
  const box = batch.box = [Infinity, Infinity, -Infinity, -Infinity];
  for (const {b} of batch.list) {
    box[0] = Math.min(box[0], b[0]); box[1] = Math.min(box[1], b[1]);
    box[2] = Math.max(box[2], b[2]); box[3] = Math.max(box[3], b[3]);
  }
}

// The pick-first set, and what a command that runs has got to work on.
function select(handles) {
  selected = new Set(handles);
  const before = marked.length, all = [...new Set([...selected, ...chosen])];
  if (all.length !== before || all.some((handle, i) => handle !== marked[i])) {
    marked = all;
    markedStrokes = null;
    if (Math.max(before, marked.length) > kFew) contentChanged();
  }
  markGroups();
  say(marked.length ? marked.length + ' selected' : '');
}
const kFew = 1500;                // so many are lit in each frame; more are part of the picture
let chosen = [], marked = [], markedStrokes = null;

// --- drawing ----------------------------------------------------------------------------------
const kSlice = 24;                // milliseconds of drawing before the page listens again
const makeLayer = () => {
  const layer = document.createElement('canvas');
  return {canvas: layer, ctx: layer.getContext('2d', {alpha: false}), view: null};
};
let front = makeLayer(), back = makeLayer();  // the finished picture, and the one that is drawn
let pass = null;                  // of drawing: {next batch}
let stale = true, viewAt = 0, frameAsked = false;

function paint() {
  if (frameAsked) return;
  frameAsked = true;
  requestAnimationFrame(frame);
}
function contentChanged() { markedStrokes = null; stale = true; pass = null; paint(); }
function viewChanged() { viewAt = performance.now(); pass = null; stale = true; paint(); }

function transform(on, at = view) { on.setTransform(ratio * at.k, 0, 0, ratio * at.k, ratio * at.x, ratio * at.y); }

function ink(style, colour) {
  const told = styles[style] || ['#888', '#888', 1, 0, 0, 0];
  return {colour: colour || told[dark.matches ? 1 : 0], width: told[2], fill: told[3], dashes: told[4], broad: told[5]};
}

// Patterns too fine to be told apart are drawn as strokes without gaps; a dot is as long as it is wide.
function dashesOf(look, at) {
  if (!look.dashes) return [];
  if (look.dashes === 1) return [5 / at.k, 4 / at.k];
  if (look.dashes.reduce((sum, length) => sum + length, 0) * at.k < 4) return [];
  return look.dashes.map((length, i) => i % 2 ? length : Math.max(length, look.width / at.k));
}

function drawStrokes(on, strokes, colour, extra = 0, at = view) {
  for (const [style, path] of strokes) {
    const look = ink(style, colour);
    if (look.fill) {
      on.globalAlpha = look.fill;
      on.fillStyle = look.colour;
      on.fill(path, 'evenodd');
      on.globalAlpha = 1;
    }
    on.strokeStyle = look.colour;
    on.lineWidth = Math.max(look.width / at.k, look.broad) + extra / at.k;
    const dashes = dashesOf(look, at);
    on.setLineDash(dashes);
    on.stroke(path);
    if (dashes.length) on.setLineDash([]);
  }
}

function drawWords(on, entity, colour, at = view) {
  for (const [style, a, b, c, d, x, y, size, anchor, fitted, words] of entity.t || []) {
    const pixels = size * at.k * Math.hypot(c, d);
    if (pixels < 2.5) continue;
    const z = ratio * at.k * size / 100;
    on.setTransform(a * z, b * z, c * z, d * z, ratio * (x * at.k + at.x), ratio * (y * at.k + at.y));
    on.font = '100px system-ui, "Segoe UI", "DejaVu Sans", sans-serif';
    on.textAlign = anchor === 0 ? 'left' : anchor === 1 ? 'right' : 'center';
    on.fillStyle = ink(style, colour).colour;
    if (fitted) {
      const wide = on.measureText(words).width * size / 100;
      if (wide > 0) on.transform(fitted / wide, 0, 0, 1, 0, 0);
    }
    on.fillText(words, 0, 0);
    transform(on, at);
  }
}

const meets = (b, w) => b[0] <= w[2] && b[2] >= w[0] && b[1] <= w[3] && b[3] >= w[1];
const visible = (at, rim = 20) => [(-at.x - rim) / at.k, (-at.y - rim) / at.k, (width - at.x + rim) / at.k, (height - at.y + rim) / at.k];
const lone = entity => entity.strokes || (entity.strokes = strokesOf([entity]));

function drawBatch(on, batch, at, window) {
  if (!batch.strokes) build(batch);
  if (!meets(batch.box, window)) return;
  const near = batch.list.filter(entity => meets(entity.b, window));
  if (near.length * 8 < batch.list.length)
    for (const entity of near) drawStrokes(on, lone(entity), null, 0, at);
  else drawStrokes(on, batch.strokes, null, 0, at);
  for (const entity of near) if (entity.t) drawWords(on, entity, null, at);
}

// Draws on until a slice is over; true when the picture is finished.
function drawOn() {
  const end = performance.now() + kSlice;
  if (!pass) {
    pass = {next: 0, view: {...view}, window: visible(view)};
    if (back.canvas.width !== canvas.width || back.canvas.height !== canvas.height) {
      back.canvas.width = canvas.width;
      back.canvas.height = canvas.height;
    }
    const on = back.ctx;
    on.setTransform(1, 0, 0, 1, 0, 0);
    on.fillStyle = colours.paper;
    on.fillRect(0, 0, canvas.width, canvas.height);
    on.lineCap = on.lineJoin = entities.size > 20000 ? 'butt' : 'round';
    if (entities.size > 20000) on.lineJoin = 'bevel';
    transform(on, pass.view);
  }
  while (pass.next < batches.length) {
    drawBatch(back.ctx, batches[pass.next++], pass.view, pass.window);
    if (performance.now() > end) return false;
  }
  if (marked.length > kFew) drawStrokes(back.ctx, markedOnes(), colours.accent, 1, pass.view);
  back.view = pass.view;
  [front, back] = [back, front];
  pass = null;
  stale = false;
  return true;
}

const known = handles => [...handles].map(handle => entities.get(handle)).filter(Boolean);
const markedOnes = () => markedStrokes || (markedStrokes = strokesOf(known(marked)));

function frame() {
  frameAsked = false;
  if (!width || !height) return;
  // A large picture waits until the view stands still; meanwhile the last one is shown in its place.
  const moving = entities.size > 6000 && front.view && performance.now() - viewAt < 120;
  if (stale && !moving) drawOn();
  const on = ctx;
  on.setTransform(1, 0, 0, 1, 0, 0);
  on.fillStyle = colours.paper;
  on.fillRect(0, 0, canvas.width, canvas.height);
  const shown = front.view || pass && pass.view, layer = front.view ? front : back;
  if (shown) {
    const zoom = view.k / shown.k;
    on.setTransform(zoom, 0, 0, zoom, ratio * (view.x - shown.x * zoom), ratio * (view.y - shown.y * zoom));
    on.drawImage(layer.canvas, 0, 0);
  }
  drawMarks(on);
  if (!stale && !ready && now.state !== 'busy') {
    ready = true;
    showDrawing();
    showState();
  }
  if (stale) paint();
}

function drawMarks(on) {
  on.lineCap = on.lineJoin = 'round';
  transform(on);
  if (marked.length <= kFew) {
    drawStrokes(on, markedOnes(), colours.accent, 1);
    for (const entity of known(marked)) if (entity.t) drawWords(on, entity, colours.accent);
  }
  if (hover && hover.strokes) {
    drawStrokes(on, hover.strokes, colours.lit, 6);
    drawStrokes(on, hover.strokes, colours.accent, .6);
    for (const entity of hover.words) drawWords(on, entity, colours.accent);
  }
  on.setTransform(ratio, 0, 0, ratio, 0, 0);
  on.lineWidth = 1;
  if (pointer && now.base && now.wants === 'point') {
    const from = toView(now.base[0], now.base[1]), to = snapped() || pointer;
    on.strokeStyle = colours.accent;
    on.setLineDash([6, 4]);
    on.beginPath();
    on.moveTo(from.x, from.y);
    on.lineTo(to.x, to.y);
    on.stroke();
    on.setLineDash([]);
  }
  if (drag && drag.box) drawBox(on);
  if (snapped()) drawSnap(on, snapped(), hover.snap.kind);
}

function drawBox(on) {
  const crossing = pointer.x < drag.x;
  on.strokeStyle = on.fillStyle = crossing ? colours.cross : colours.accent;
  on.globalAlpha = .1;
  on.fillRect(drag.x, drag.y, pointer.x - drag.x, pointer.y - drag.y);
  on.globalAlpha = 1;
  if (crossing) on.setLineDash([5, 4]);
  on.strokeRect(drag.x + .5, drag.y + .5, pointer.x - drag.x, pointer.y - drag.y);
  on.setLineDash([]);
}

function drawSnap(on, at, kind) {
  on.strokeStyle = colours.warn;
  on.lineWidth = 2;
  on.beginPath();
  if (kind === 'centre') on.arc(at.x, at.y, 6, 0, 7);
  else if (kind === 'middle') { on.moveTo(at.x - 7, at.y + 6); on.lineTo(at.x + 7, at.y + 6); on.lineTo(at.x, at.y - 7); on.closePath(); }
  else on.rect(at.x - 6, at.y - 6, 12, 12);
  on.stroke();
}

// --- the view ---------------------------------------------------------------------------------
// Drawing units to path units, to pixels of the canvas, and back.
const toUnits = (x, y) => [(x - sheet.left) * sheet.scale, (sheet.top - y) * sheet.scale];
function toView(x, y) {
  const [u, v] = toUnits(x, y);
  return {x: u * view.k + view.x, y: v * view.k + view.y};
}
function toDrawing(at) {
  const digits = Math.min(12, Math.max(0, Math.ceil(Math.log10(view.k * sheet.scale)) + 1));
  return {x: +((at.x - view.x) / view.k / sheet.scale + sheet.left).toFixed(digits),
          y: +(sheet.top - (at.y - view.y) / view.k / sheet.scale).toFixed(digits)};
}
const boxOf = ([left, bottom, right, top]) => [...toUnits(left, top), ...toUnits(right, bottom)];
const kMargin = 30, kNearest = 200, kFarthest = 1e-4;

function zoomTo([left, top, right, bottom]) {
  const wide = Math.max(right - left, 1e-3), tall = Math.max(bottom - top, 1e-3);
  const k = Math.min((width - 2 * kMargin) / wide, (height - 2 * kMargin) / tall);
  view.k = Math.min(kNearest, Math.max(kFarthest, k || 1));
  view.x = width / 2 - (left + right) / 2 * view.k;
  view.y = height / 2 - (top + bottom) / 2 * view.k;
  viewChanged();
}
function zoomAt(at, factor) {
  const k = Math.min(kNearest, Math.max(kFarthest, view.k * factor)), zoom = k / view.k;
  view.x = at.x - (at.x - view.x) * zoom;
  view.y = at.y - (at.y - view.y) * zoom;
  view.k = k;
  viewChanged();
  lookSoon();
}
function pan(x, y) { view.x += x; view.y += y; viewChanged(); }
const middle = () => ({x: width / 2, y: height / 2});
function showAll() {
  let box = null;
  for (const {b} of entities.values())
    box = box ? [Math.min(box[0], b[0]), Math.min(box[1], b[1]), Math.max(box[2], b[2]), Math.max(box[3], b[3])] : [...b];
  zoomTo(box || boxOf(sheet.box));
}
function showSelected() {
  const boxes = known(selected).map(entity => entity.b);
  if (!boxes.length) return;
  const box = [Math.min(...boxes.map(b => b[0])), Math.min(...boxes.map(b => b[1])),
               Math.max(...boxes.map(b => b[2])), Math.max(...boxes.map(b => b[3]))];
  const rim = Math.max(box[2] - box[0], box[3] - box[1]) / 2;
  zoomTo([box[0] - rim, box[1] - rim, box[2] + rim, box[3] + rim]);
}

function resize() {
  const box = el('view').getBoundingClientRect();
  const first = !width;
  ratio = devicePixelRatio || 1;
  const x = (box.width - width) / 2, y = (box.height - height) / 2;
  width = box.width;
  height = box.height;
  canvas.width = Math.max(1, Math.round(width * ratio));
  canvas.height = Math.max(1, Math.round(height * ratio));
  if (first) zoomTo(boxOf(sheet.box)); else pan(x, y);
}
function readColours() {
  const style = getComputedStyle(root);
  for (const name of ['paper', 'accent', 'lit', 'warn', 'cross']) colours[name] = style.getPropertyValue('--' + name).trim();
  contentChanged();
}

// --- pointing ---------------------------------------------------------------------------------
const kPickBox = 5;               // pixels around the pointer
let pointer = null, drag = null, hover = null, touches = new Map();
let looking = false, lookAgain = false;

const at = event => {
  const box = canvas.getBoundingClientRect();
  return {x: event.clientX - box.left, y: event.clientY - box.top};
};
const aim = where => ({...toDrawing(where), r: kPickBox / view.k / sheet.scale});
const snapped = () => hover && hover.snap && now.wants === 'point' ? toView(hover.snap.x, hover.snap.y) : null;

// What a click would do here is the host's to say. One question at a time.
async function look() {
  if (!pointer || drag || touches.size > 1 || waiting.length || lost || !ready) return;
  if (looking) { lookAgain = true; return; }
  looking = true;
  const told = now;
  try {
    const found = await post({do: 'look', ...aim(pointer)});
    if (told === now && pointer && !found.error) showHover(found);
  } catch (problem) {
    if (problem.other) loseTouch(problem);
  }
  looking = false;
  if (lookAgain) { lookAgain = false; look(); }
}
let soon = 0;
function lookSoon() { clearTimeout(soon); soon = setTimeout(look, 15); }

function showHover(found) {
  hover = found;
  if (found.lit && now.wants !== 'words') {
    const lit = known(found.lit);
    hover.strokes = strokesOf(lit);
    hover.words = lit.filter(entity => entity.t);
  }
  const tip = el('tip');
  tip.hidden = !found.handle;
  if (found.handle) {
    let text = found.type + ' ' + found.handle + '\nlayer ' + found.layer;
    if (found.group) text += '\ngroup ' + found.group.begin + ', ' + found.group.verdict +
      (found.group.reason ? ': ' + found.group.reason : '');
    tip.textContent = text;
    tip.style.left = Math.min(pointer.x + 16, width - tip.offsetWidth - 4) + 'px';
    tip.style.top = (pointer.y + 18 + tip.offsetHeight < height ? pointer.y + 18 : pointer.y - 10 - tip.offsetHeight) + 'px';
  }
  paint();
}
function forgetHover() { hover = null; el('tip').hidden = true; paint(); }

canvas.addEventListener('pointerdown', event => {
  canvas.setPointerCapture(event.pointerId);
  pointer = at(event);
  if (event.pointerType === 'touch') touches.set(event.pointerId, pointer);
  const pans = event.button === 1 || event.button === 2 || touches.size > 1;
  drag = {...pointer, shift: event.shiftKey, pans, moved: false, touch: event.pointerType === 'touch'};
  if (event.button === 1) event.preventDefault();
});
canvas.addEventListener('pointermove', event => {
  const to = at(event), from = pointer;
  if (touches.has(event.pointerId)) {
    if (touches.size === 2) pinch(event.pointerId, to);
    touches.set(event.pointerId, to);
  }
  pointer = to;
  const place = toDrawing(to);
  el('where').textContent = place.x + ', ' + place.y;
  if (!drag) { lookSoon(); if (now.base) paint(); return; }
  if (Math.hypot(to.x - drag.x, to.y - drag.y) > 4) drag.moved = true;
  if (!drag.moved || touches.size > 1) return;
  if (drag.pans || drag.touch) { pan(to.x - from.x, to.y - from.y); forgetHover(); return; }
  drag.box = now.wants === 'command' || now.wants === 'selection';
  if (drag.box) { hover = null; el('tip').hidden = true; }
  paint();
});
function pinch(id, to) {
  const [other] = [...touches].filter(([key]) => key !== id).map(([, spot]) => spot), from = touches.get(id);
  const before = Math.hypot(from.x - other.x, from.y - other.y), after = Math.hypot(to.x - other.x, to.y - other.y);
  drag.moved = true;
  pan((to.x - from.x) / 2, (to.y - from.y) / 2);
  if (before > 0) zoomAt({x: (to.x + other.x) / 2, y: (to.y + other.y) / 2}, after / before);
}
canvas.addEventListener('pointerup', event => {
  touches.delete(event.pointerId);
  const was = drag;
  pointer = at(event);
  drag = null;
  if (!was || was.pans || was.touch && was.moved || event.button > 0) return lookSoon();
  if (!was.box && !was.moved || now.wants === 'point') {
    send({do: 'click', ...aim(was.moved ? pointer : was), shift: was.shift});
  } else if (was.box) {
    const a = toDrawing(was), b = toDrawing(pointer);
    send({do: 'box', x1: a.x, y1: a.y, x2: b.x, y2: b.y, crossing: pointer.x < was.x, shift: was.shift});
  }
  paint();
});
canvas.addEventListener('pointercancel', event => { touches.delete(event.pointerId); drag = null; paint(); });
canvas.addEventListener('pointerleave', () => { if (!drag) { pointer = null; forgetHover(); el('where').textContent = ''; } });
canvas.addEventListener('contextmenu', event => event.preventDefault());
canvas.addEventListener('wheel', event => {
  event.preventDefault();
  const step = event.deltaMode ? event.deltaY * 30 : event.deltaY;
  zoomAt(at(event), Math.exp(-Math.max(-300, Math.min(300, step)) * (event.ctrlKey ? .01 : .0015)));
}, {passive: false});

// --- the command line -------------------------------------------------------------------------
let typed = [], place = 0;        // history

function enter(line) {
  if (line.trim()) {
    if (typed[typed.length - 1] !== line) typed.push(line);
    place = typed.length;
  }
  send({do: 'type', line});
}
function command(line) {
  if (now.state === 'asking' && !waiting.length) send({do: 'cancel'});
  enter(line);
  input.focus();
}
function cancel() {
  input.value = '';
  drag = null;
  forgetHover();
  send({do: 'cancel'});
}
function say(text) { el('info').textContent = text; }

const isOpen = text => (text.split('"').length - 1) % 2 === 1 ||
  text.split('(').length > text.split(')').length;

// The words of "[Yes/No] <N>" as buttons.
function offerOptions(prompt) {
  const found = /\[([^\]]+)\]/.exec(prompt);
  const words = found && now.state === 'asking' ? found[1].split('/') : [];
  if (now.state === 'asking') words.push('Enter');
  el('options').replaceChildren(...words.map(word => {
    const button = document.createElement('button');
    button.textContent = word;
    button.onclick = () => { enter(word === 'Enter' ? '' : word); input.focus(); };
    return button;
  }));
}

function complete() {
  const text = input.value.toUpperCase();
  const fitting = names.filter(name => name.toUpperCase().startsWith(text));
  if (!fitting.length) return;
  let common = fitting[0];
  for (const name of fitting)
    while (!name.toUpperCase().startsWith(common.toUpperCase())) common = common.slice(0, -1);
  if (common.length > text.length) input.value = common;
  if (fitting.length > 1) say(fitting.join(' '));
}

input.addEventListener('keydown', event => {
  if (event.isComposing) return;
  const busy = root.dataset.state === 'busy';
  const isBlank = event.key === ' ' && !now.line && !busy && !isOpen(input.value);
  if (event.key === 'Enter' || isBlank) {
    event.preventDefault();
    const line = input.value;
    input.value = '';
    enter(line);
  } else if (event.key === 'ArrowUp' || event.key === 'ArrowDown') {
    event.preventDefault();
    place = Math.max(0, Math.min(typed.length, place + (event.key === 'ArrowUp' ? -1 : 1)));
    input.value = typed[place] || '';
  } else if (event.key === 'Tab' && input.value && !event.shiftKey) {
    event.preventDefault();
    if (now.wants === 'command') complete();
  }
});

const kPan = 60;
const viewKeys = {
  ArrowLeft: () => pan(kPan, 0), ArrowRight: () => pan(-kPan, 0), ArrowUp: () => pan(0, kPan), ArrowDown: () => pan(0, -kPan),
  '+': () => zoomAt(middle(), 1.4), '=': () => zoomAt(middle(), 1.4), '-': () => zoomAt(middle(), 1 / 1.4),
  Home: showAll,
};
const shortcuts = {z: 'U', y: 'REDO', s: 'QSAVE'};

document.addEventListener('keydown', event => {
  if (!el('notice').hidden || event.isComposing) return;
  const control = event.ctrlKey || event.metaKey, onView = event.target === canvas;
  const typing = event.target === input && input.value;
  if (event.key === 'Escape') {
    event.preventDefault();
    cancel();
  } else if (control && shortcuts[event.key] && !(typing && event.key !== 's')) {
    event.preventDefault();
    command(event.key === 's' && !now.named ? 'SAVEAS' : shortcuts[event.key]);
  } else if (event.key === 'Delete' && !typing && now.state === 'ready') {
    command('ERASE');
  } else if (onView && !control && viewKeys[event.key]) {
    event.preventDefault();
    viewKeys[event.key]();
  } else if (!control && !event.altKey && event.key.length === 1 && event.key !== ' ' && event.target !== input) {
    input.focus();                // what is typed anywhere goes to the command line
  } else if (event.key === 'Enter' && (onView || event.target === document.body)) {
    enter('');
  }
});

// --- the rest of the page ---------------------------------------------------------------------
for (const button of document.querySelectorAll('[data-command]'))
  button.onclick = () => command(button.dataset.command === 'QSAVE' && !now.named ? 'SAVEAS' : button.dataset.command);
el('in').onclick = () => zoomAt(middle(), 1.4);
el('out').onclick = () => zoomAt(middle(), 1 / 1.4);
el('all').onclick = showAll;

function pickGroup(event) {
  const li = event.target.closest('li');
  if (!li) return;
  const shown = (now.spaces || []).find(space => space.space === shownSpace);
  if (shown && shown.name !== li.dataset.space) {
    const other = now.spaces.find(space => space.name === li.dataset.space);
    if (other) send({do: 'space', space: other.space});
    if (!other || !other.current) return;
  }
  afterwards = null;
  send({do: 'group', begin: li.dataset.begin});
  afterwards = showSelected;
}
el('groups').addEventListener('click', pickGroup);
el('groups').addEventListener('keydown', event => {
  if (event.key !== 'Enter' && event.key !== ' ') return;
  event.preventDefault();
  event.stopPropagation();
  pickGroup(event);
});

Object.defineProperty(el('script'), 'value', {get: () => el('script').textContent});
el('copy').onclick = async () => {
  try {
    await navigator.clipboard.writeText(el('script').textContent);
    say('The script is in the clipboard');
  } catch {
    getSelection().selectAllChildren(el('script'));
    say('The script is selected: copy it with Ctrl+C');
  }
};
el('download').onclick = () => {
  const link = document.createElement('a');
  const name = (now.drawing || 'session').replace(/^.*[\\/]/, '').replace(/\.[^.]*$/, '');
  link.href = URL.createObjectURL(new Blob([el('script').textContent], {type: 'text/plain'}));
  link.download = name + '.scr';
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 10000);
};

setInterval(async () => {
  if (lost) return;
  try {
    await post({do: 'ping'});
  } catch (problem) {
    if (!lost) loseTouch(problem);
  }
}, 2000);
addEventListener('beforeunload', event => { if (now.changed && !lost) event.preventDefault(); });
addEventListener('pagehide', () => {
  if (!lost) navigator.sendBeacon('api', new Blob([JSON.stringify({do: 'bye', page})], {type: 'application/json'}));
});
addEventListener('pageshow', event => { if (event.persisted) open(false); });
dark.addEventListener('change', readColours);
new ResizeObserver(resize).observe(el('view'));

window.drafthost = {
  // Where a point of the drawing is in the page: [x, y], which are x and y too.
  toScreen(x, y) {
    const box = canvas.getBoundingClientRect(), spot = toView(x, y);
    return Object.assign([box.left + spot.x, box.top + spot.y], {x: box.left + spot.x, y: box.top + spot.y});
  },
  selected: () => [...selected],
};
readColours();
resize();
open(false);
})();
