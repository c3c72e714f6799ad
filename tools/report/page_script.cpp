#include "report/page_parts.h"

namespace tools {

const char kPictureScript[] = R"js(
'use strict';
// What stands under the pointer: "x 812, y 430: grey 57".
function readerOf(image, w, h) {
  let pixels = null;
  const loaded = new Image();
  loaded.onload = () => {
    const canvas = Object.assign(document.createElement('canvas'), {width: w, height: h});
    const context = canvas.getContext('2d', {willReadFrequently: true});
    context.drawImage(loaded, 0, 0);
    pixels = context.getImageData(0, 0, w, h).data;
  };
  loaded.src = image.getAttribute('href');
  return (x, y) => pixels && x >= 0 && y >= 0 && x < w && y < h
    ? `x ${x}, y ${y}: grey ${pixels[4 * (y * w + x)]}` : '\u00a0';
}
const views = []; // of both pictures: what one shows the other shows too
function setUp(figure) {
  const svg = figure.querySelector('svg');
  const whole = svg.viewBox.baseVal, w = whole.width, h = whole.height, x0 = whole.x, y0 = whole.y;
  const view = {x: x0, y: y0, w: w};
  const labels = [...svg.querySelectorAll('.mark, .failure')].map(mark => {
    const text = mark.querySelector('text'), at = mark.transform.baseVal[0].matrix, box = text.getBBox();
    const x = Number(text.getAttribute('x')), y = Number(text.getAttribute('y'));
    return {text, at, x, y, left: box.x - x, top: box.y - y, width: box.width, height: box.height};
  });
  // How far a stretch must move to lie between first and last.
  const shift = (from, length, first, last) => Math.min(last - length - from, Math.max(first - from, 0));
  function placeLabels(u) { // inside the frame if there is no room outside; never across the picture's border
    for (const t of labels) {
      const left = (x0 - t.at.e) / u, top = (y0 - t.at.f) / u;
      const fitX = x => x + shift(x + t.left, t.width, left, left + w / u);
      const fitY = y => y + shift(y + t.top, t.height, top, top + h / u);
      const outside = fitY(t.y) === t.y;
      t.text.setAttribute('x', fitX(outside ? t.x : Number(t.text.dataset.x)));
      t.text.setAttribute('y', fitY(outside ? t.y : Number(t.text.dataset.y)));
    }
  }
  function show() {
    view.w = Math.min(w, Math.max(w / 400, view.w));
    const vh = view.w * h / w;
    view.x = Math.min(x0 + w - view.w, Math.max(x0, view.x));
    view.y = Math.min(y0 + h - vh, Math.max(y0, view.y));
    svg.setAttribute('viewBox', [view.x, view.y, view.w, vh].join(' '));
    const u = view.w / (svg.getBoundingClientRect().width || w);
    svg.style.setProperty('--u', u);
    svg.classList.toggle('close', u < 0.5);
    placeLabels(u);
  }
  // The others show the same part of theirs.
  function share() {
    for (const other of views)
      if (other.svg !== svg)
        other.showShare((view.x - x0) / w, (view.y - y0) / h, view.w / w);
  }
  views.push({svg, showShare: (x, y, width) => {
    view.x = x0 + x * w;
    view.y = y0 + y * h;
    view.w = width * w;
    show();
  }});
  function zoom(factor, px, py) { // keeps the picture's point px, py where it is
    const w1 = Math.min(w, Math.max(w / 400, view.w * factor)), f = w1 / view.w;
    view.x = px - (px - view.x) * f;
    view.y = py - (py - view.y) * f;
    view.w = w1;
    show();
    share();
  }
  function middle() { return [view.x + view.w / 2, view.y + view.w * h / w / 2]; }
  function at(e) {
    const p = new DOMPoint(e.clientX, e.clientY).matrixTransform(svg.getScreenCTM().inverse());
    return [p.x, p.y];
  }
  let clicked = false;
  svg.addEventListener('pointerleave', () => { clicked = false; });
  svg.addEventListener('wheel', e => {
    if (!e.ctrlKey && !clicked)
      return; // let the page scroll
    e.preventDefault();
    zoom(e.deltaY > 0 ? 1.25 : 0.8, ...at(e));
  }, {passive: false});
  let held = null;
  svg.addEventListener('pointerdown', e => {
    held = at(e);
    clicked = true;
    svg.setPointerCapture(e.pointerId);
    svg.classList.add('moving');
  });
  const tellPixel = readerOf(svg.querySelector('image'), w, h), told = figure.querySelector('output');
  svg.addEventListener('pointermove', e => {
    const p = at(e);
    told.textContent = tellPixel(Math.round(p[0]), Math.round(p[1]));
    if (!held)
      return;
    view.x += held[0] - p[0];
    view.y += held[1] - p[1];
    show();
    share();
  });
  for (const name of ['pointerup', 'pointercancel'])
    svg.addEventListener(name, () => { held = null; svg.classList.remove('moving'); });
  for (const b of figure.querySelectorAll('button'))
    b.addEventListener('click', () => {
      if (b.dataset.zoom)
        return zoom(Number(b.dataset.zoom), ...middle());
      view.w = b.dataset.x ? w / 30 : w;
      view.x = Number(b.dataset.x || x0) - view.w / 2;
      view.y = Number(b.dataset.y || y0) - view.w * h / w / 2;
      show();
      share();
    });
  new ResizeObserver(show).observe(svg);
  show();
}
for (const figure of document.querySelectorAll('figure'))
  setUp(figure);
for (const box of document.querySelectorAll('.legend input'))
  box.addEventListener('change', () => {
    for (const layer of document.querySelectorAll('svg > .' + box.value))
      layer.style.display = box.checked ? '' : 'none';
  });
)js";

} // namespace tools
