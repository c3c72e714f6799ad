'use strict';
// What a batch's page shows, in the numbers of its charts. Appended to a copy of it.
addEventListener('load', () => {
  const seen = {charts: {}, cards: [], overflow: document.documentElement.scrollWidth - innerWidth};
  for (const figure of document.querySelectorAll('.chart')) {
    const paths = [...figure.querySelectorAll('path')], of = name => paths.filter(e => e.classList.contains(name));
    const chart = seen.charts[figure.querySelector('figcaption').textContent] = {groups: {}, marks: {}};
    const across = of('limit').map(e => ({at: Number(e.dataset.at), y: e.getBBox().y}));
    const value = y => across[0].at + (y - across[0].y) / (across[1].y - across[0].y) * (across[1].at - across[0].at);
    for (const e of of('dots')) {
      let y = 0, sum = 0, count = 0;
      for (const move of e.getAttribute('d').matchAll(/m(-?\d+) ?(-?\d+)h0/g)) {
        y += Number(move[2]);
        sum += value(y);
        ++count;
      }
      const mean = of('mean').find(each => each.classList.contains(e.classList[1]));
      chart.groups[e.classList[1]] = {count, mean: sum / count, line: value(mean.getBBox().y),
        told: mean.textContent, lost: e.getAttribute('d').replace(/m-?\d+ ?-?\d+h0/g, '')};
    }
    for (const e of of('mark'))
      chart.marks[e.classList[1]] = (chart.marks[e.classList[1]] || 0) + e.getAttribute('d').split('M').length - 1;
    for (const e of of('bars')) // areas under the steps
      chart.groups[e.classList[1]] = [...e.getAttribute('d').matchAll(/V(\d+)/g)].reduce((sum, v) => sum + 1000 - v[1], 0);
  }
  for (const card of document.querySelectorAll('.card')) {
    const image = card.querySelector('img');
    seen.cards.push({text: card.textContent, href: card.getAttribute('href'), width: image && image.naturalWidth});
  }
  seen.legend = [...document.querySelectorAll('section.legend span')].map(e => e.textContent);
  seen.counts = [...document.querySelectorAll('.counts tr')].map(e => [...e.children].map(c => c.textContent));
  const cells = () => [...document.querySelectorAll('#all tbody tr')].map(e => [...e.cells].map(c => c.textContent));
  const told = () => document.getElementById('told').textContent;
  const filter = words => {
    const input = document.getElementById('filter');
    input.value = words;
    input.dispatchEvent(new Event('input'));
    return {told: told(), first: cells()[0]};
  };
  seen.first = cells()[0];
  seen.link = document.querySelector('#all a').getAttribute('href');
  const press = name => [...document.querySelectorAll('#all thead button')].find(e => e.textContent === name).click();
  seen.sorted = {};
  press('Ry');
  seen.sorted.up = cells()[0];
  press('Ry');
  seen.sorted.down = cells()[0];
  seen.shown = cells().length;
  document.getElementById('more').click();
  seen.more = cells().length;
  seen.filtered = {column: filter('station=b'), words: filter('DOUBTFUL m009'), none: filter('no such row')};
  const out = document.createElement('script');
  out.type = 'application/json';
  out.id = 'seen';
  out.textContent = JSON.stringify(seen).replaceAll('<', '\\u003c'); // a name may end a script
  document.body.append(out);
});
