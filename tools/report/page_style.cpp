#include "report/page_parts.h"

namespace tools {

const char kPageStyle[] = R"css(
:root { color-scheme: light dark;
  --page: #f5f6f8; --card: #fff; --ink: #16191d; --soft: #59616b; --line: #d5d9df;
  --pass: #17663a; --doubt: #8f5c00; --fail: #a61b1b; }
@media (prefers-color-scheme: dark) { :root {
  --page: #14171a; --card: #1e2226; --ink: #e8eaed; --soft: #a3abb5; --line: #3a4047;
  --pass: #2a7d4f; --doubt: #9a6a10; --fail: #c23b3b; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--page); color: var(--ink); font: 15px/1.45 system-ui, sans-serif; }
header { padding: 14px 20px; color: #fff; background: var(--fail); }
header.pass { background: var(--pass); }
header.doubt { background: var(--doubt); }
h1 { margin: 0; font-size: 20px; line-height: 1.3; overflow-wrap: anywhere; }
h2 { margin: 0 0 8px; font-size: 16px; overflow-wrap: anywhere; }
header p, header ul { margin: 6px 0 0; font-size: 15px; }
main { padding: 10px 20px; }
section, figure { margin: 0; padding: 12px 14px; background: var(--card); border: 1px solid var(--line);
  border-radius: 6px; overflow-x: auto; }
ul { margin: 0; padding-left: 20px; overflow-wrap: anywhere; }
table { border-collapse: collapse; width: 100%; font-variant-numeric: tabular-nums; }
th, td { padding: 2px 0 2px 14px; text-align: right; border-top: 1px solid var(--line); font-weight: normal; }
thead th { border-top: 0; color: var(--soft); white-space: nowrap; }
th:first-child { padding-left: 0; text-align: left; }
td { white-space: nowrap; }
@media (max-width: 500px) { td, th { white-space: normal; overflow-wrap: break-word; padding-left: 6px; } }
.beyond { color: var(--fail); font-weight: 700; }
figcaption { margin-bottom: 8px; overflow-wrap: anywhere; }
button { font: inherit; font-size: 13px; padding: 2px 9px; color: var(--ink); background: var(--page);
  border: 1px solid var(--line); border-radius: 4px; cursor: pointer; }
button:hover { border-color: var(--soft); }
.legend { display: flex; flex-wrap: wrap; gap: 4px 18px; font-size: 14px; }
.legend label { white-space: nowrap; }
.legend i { display: inline-block; width: 18px; height: 4px; margin: 0 4px 3px; border-radius: 2px; }
.legend i { background: var(--c); }
footer { padding: 0 20px 20px; color: var(--soft); font-size: 14px; }
@media print { figure, section { break-inside: avoid; }
  header { -webkit-print-color-adjust: exact; print-color-adjust: exact; } }
)css";

// --u is the size of a screen pixel in picture pixels: marks keep their size on the screen at every zoom.
const char kPictureStyle[] = R"css(
header span { display: inline-block; margin-right: 22px; font-variant-numeric: tabular-nums; }
.pictures, .numbers { display: grid; gap: 10px; grid-template-columns: minmax(0, 1fr); margin-top: 10px; }
@media (min-width: 900px) {
  .pictures { grid-template-columns: minmax(0, 1fr) minmax(0, 1fr); align-items: start; }
  .numbers { display: block; columns: 2; column-gap: 10px; }
  .numbers section { break-inside: avoid; margin-bottom: 10px; } }
@media (max-width: 899px) { .first { order: -1; } }
dl { margin: 0; display: grid; gap: 2px 14px; grid-template-columns: max-content minmax(0, 1fr); }
dt { color: var(--soft); }
dd { margin: 0; overflow-wrap: anywhere; }
header .beyond { color: #fff; text-decoration: underline; }
output { display: block; color: var(--soft); font-size: 13px; font-variant-numeric: tabular-nums; }
figcaption b { text-transform: capitalize; }
figcaption .stopped { color: #fff; background: var(--fail); border-radius: 4px; padding: 1px 6px;
  display: inline-block; }
svg { display: block; width: 100%; height: auto; cursor: grab; touch-action: pan-y;
  user-select: none; -webkit-user-select: none; }
svg.moving { cursor: grabbing; }
svg.close image { image-rendering: pixelated; }
.tools { display: flex; flex-wrap: wrap; gap: 6px; margin-top: 8px; }
rect, line, .second path, .screen * { fill: none; stroke-width: 1.6px; vector-effect: non-scaling-stroke; }
.second path { stroke: var(--c); }
.second .out { stroke: #ff2d2d; stroke-width: 5px; stroke-linecap: round; }
.failure circle { stroke-width: 4px; }
.screen { transform: scale(var(--u, 2)); }
.screen { filter: drop-shadow(0 0 0.8px #fff) drop-shadow(0 0 0.8px #fff); }
.screen text { font: 600 13px system-ui, sans-serif; text-rendering: geometricPrecision; }
.window { --c: #0a58ca; } .frame { --c: #c2410c; } .cross { --c: #d6007f; } .side { --c: #0a8f3c; }
.fitted { --c: #9a5cf5; } .second { --c: #00a6b8; } .failure { --c: #e00000; }
rect, line, .screen path, .screen circle { stroke: var(--c); }
.screen text { fill: var(--c); stroke: #fff; stroke-width: 3px; stroke-linejoin: round; paint-order: stroke; }
.window rect { stroke-dasharray: 8 5; }
.frame rect { stroke-dasharray: 3 3; }
line { stroke-width: 2px; }
.cross line { stroke: #ff5cc0; }
.side line { stroke: #3ddc84; }
.fitted line { stroke-dasharray: 10 8; }
.screen circle { stroke-width: 2px; }
@media print { .tools, .legend input, output { display: none; } }
)css";

} // namespace tools
