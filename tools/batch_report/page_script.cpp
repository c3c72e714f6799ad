#include "batch_report/page_parts.h"

namespace tools {

const char kBatchScript[] = R"js(
'use strict';
const data = JSON.parse(document.getElementById('data').textContent);
const {names, verdicts, reasons, rows} = data;
const [table, filter, told, more] = ['all', 'filter', 'told', 'more'].map(id => document.getElementById(id));
const atVerdict = names.indexOf('verdict', 2), atReasons = names.length - 1;
const isAngle = column => column > atVerdict && column < atReasons;
const sortOf = new Intl.Collator('en', {numeric: true});
// A cell as people see it.
function text(row, column) {
  const value = row[column];
  if (column === atVerdict)
    return verdicts[value];
  if (column === atReasons)
    return value.map(reason => reasons[reason]).join(', ');
  return isAngle(column) ? value === null ? '-' : value.toFixed(4) : String(value);
}
function add(parent, tag, words) {
  const element = parent.appendChild(document.createElement(tag));
  element.textContent = words;
  return element;
}
const steps = 100;
let chosen = rows, ordered = rows, room = steps;
function show() {
  const body = document.createElement('tbody');
  for (const row of chosen.slice(0, room)) {
    const line = body.appendChild(document.createElement('tr'));
    names.forEach((name, column) => {
      const cell = add(line, column === 0 ? 'th' : 'td', '');
      if (column === 0 && row[names.length])
        add(cell, 'a', text(row, 0)).href = `${data.folder}/row-${String(row[0]).padStart(5, '0')}.html`;
      else
        cell.textContent = text(row, column);
      if (!isAngle(column))
        cell.className = 'text';
    });
  }
  table.tBodies[0].replaceWith(body);
  more.hidden = chosen.length <= room;
  told.textContent = `${chosen.length} of ${rows.length} rows` + (more.hidden ? '' : `, the first ${room} shown`);
}
// Each word must be in a row; column=value must be its cell there.
const searched = new Map();
function choose() {
  const wanted = filter.value.toLowerCase().split(/\s+/).filter(Boolean).map(word => {
    const at = word.indexOf('=');
    const [name, value] = at < 0 ? [word] : [word.slice(0, at), word.slice(at + 1)];
    const column = names.findIndex(each => each.toLowerCase().replaceAll(' ', '_') === name);
    if (value !== undefined && column >= 0)
      return row => text(row, column).toLowerCase().replaceAll(' ', '_') === value;
    return row => {
      if (!searched.has(row))
        searched.set(row, names.map((each, at) => text(row, at)).join('\n').toLowerCase());
      return searched.get(row).includes(word);
    };
  });
  chosen = ordered.filter(row => wanted.every(fits => fits(row)));
  room = steps;
  show();
}
// Cells without a value come last both ways.
function sortBy(column, sign) {
  const compare = column === atReasons || column > 0 && column < atVerdict
    ? (a, b) => sign * sortOf.compare(text(a, column), text(b, column))
    : (a, b) => (a[column] === null) - (b[column] === null) || sign * (a[column] - b[column]);
  ordered = [...rows].sort(compare);
  choose();
}
const heads = table.tHead.appendChild(document.createElement('tr'));
names.forEach((name, column) => {
  const head = add(heads, 'th', ''), button = add(head, 'button', name);
  button.addEventListener('click', () => {
    const sign = head.getAttribute('aria-sort') === 'ascending' ? -1 : 1;
    for (const other of heads.children)
      other.removeAttribute('aria-sort');
    head.setAttribute('aria-sort', sign > 0 ? 'ascending' : 'descending');
    sortBy(column, sign);
  });
});
filter.addEventListener('input', choose);
more.addEventListener('click', () => { room += 10 * steps; show(); });
show();
)js";

} // namespace tools
