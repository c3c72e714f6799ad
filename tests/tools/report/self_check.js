'use strict';
// Where the page's shapes stand, in picture pixels, as the browser laid them out. Appended to a copy of a report.
addEventListener('load', () => {
  const seen = {shapes: {}, pictures: {}, zoomed: {}, cutLabels: [], hidden: []};
  const place = e => {
    const m = e.ownerSVGElement.getScreenCTM().inverse().multiply(e.getScreenCTM());
    if (e.classList.contains('mark') || e.classList.contains('failure'))
      return {x: m.e, y: m.f};
    const at = (x, y) => { const p = new DOMPoint(x, y).matrixTransform(m); return {x: p.x, y: p.y}; };
    const v = name => e[name].baseVal.value;
    if (e.localName === 'line')
      return {from: at(v('x1'), v('y1')), to: at(v('x2'), v('y2'))};
    const b = e.getBBox();
    return {...at(b.x, b.y), width: b.width * m.a, height: b.height * m.d};
  };
  const middle = e => {
    const b = e.getBoundingClientRect();
    return [b.left + b.width / 2, b.top + b.height / 2];
  };
  const checkLabel = (mark, svg) => {
    const b = mark.querySelector('text').getBoundingClientRect(), s = svg.getBoundingClientRect();
    if (Math.min(b.left - s.left, b.top - s.top, s.right - b.right, s.bottom - b.bottom) < -0.1)
      seen.cutLabels.push(mark.id);
  };
  const shapes = [...document.querySelectorAll('svg [id]')];
  for (const e of shapes)
    seen.shapes[e.id] = place(e);
  const box = document.querySelector('.legend [value=fitted]');
  box.click();
  seen.hidden = shapes.filter(e => e.getClientRects().length === 0).map(e => e.id);
  box.click();
  seen.captions = [...document.querySelectorAll('figcaption')].map(e => e.textContent);
  seen.overflow = document.documentElement.scrollWidth - innerWidth;
  for (const figure of document.querySelectorAll('figure')) {
    const svg = figure.querySelector('svg');
    for (const button of figure.querySelectorAll('button[data-x]')) {
      button.click();
      const mark = [...svg.querySelectorAll('.mark')].find(
        e => e.querySelector('text').textContent === button.textContent);
      const ring = mark.querySelector('circle'), at = middle(ring), svgAt = middle(svg);
      checkLabel(mark, svg);
      seen.zoomed[mark.id] = {off: Math.hypot(at[0] - svgAt[0], at[1] - svgAt[1]),
        ring: ring.getBoundingClientRect().width, place: place(mark), view: svg.viewBox.baseVal.width};
    }
    [...figure.querySelectorAll('button')].find(b => b.textContent === 'whole picture').click();
    for (const mark of svg.querySelectorAll('.mark'))
      checkLabel(mark, svg);
    const image = svg.querySelector('image'), loaded = new Image();
    loaded.src = image.getAttribute('href');
    seen.pictures[image.id] = [loaded.naturalWidth, loaded.naturalHeight];
  }
  const out = document.createElement('script');
  out.type = 'application/json';
  out.id = 'seen';
  out.textContent = JSON.stringify(seen);
  document.body.append(out);
});
