#include "batch_report/page_parts.h"

namespace tools {

// The groups' colours are those of Okabe and Ito, which people without full colour vision tell apart; in the
// dark the darkest of them are lighter.
const char kBatchStyle[] = R"css(
.g0 { --c: #0072b2; } .g1 { --c: #d55e00; } .g2 { --c: #009e73; } .g3 { --c: #cc79a7; }
.g4 { --c: #56b4e9; } .g5 { --c: #e69f00; } .g6 { --c: #77808a; }
.doubtful { --c: #e69f00; } .out_of_range { --c: #d62728; } .not_measured { --c: #7b3fa0; }
.no_answer { --c: var(--ink); } .unfit_input { --c: #77808a; }
@media (prefers-color-scheme: dark) { .g0 { --c: #3d9ee0; } .out_of_range { --c: #ff5a50; }
  .not_measured { --c: #b98ae0; } }
header span { display: inline-block; margin-right: 22px; }
main > * { margin-top: 10px; }
.charts { display: grid; gap: 10px; grid-template-columns: minmax(0, 1fr); }
@media (min-width: 900px) { .charts { grid-template-columns: minmax(0, 1fr) minmax(0, 1fr); }
  .charts.three { grid-template-columns: repeat(3, minmax(0, 1fr)); }
  .charts.run { grid-template-columns: minmax(0, 3fr) minmax(0, 2fr); } }
.reasons th:first-child { white-space: normal; overflow-wrap: anywhere; }
.plane { position: relative; height: 210px; margin: 0 10px 20px 44px; }
.lanes .plane { height: calc(26px * var(--lanes) + 8px); }
.lanes { background: var(--card); border: 1px solid var(--line); border-radius: 6px; }
.lanes figure { border: 0; } .lanes .legend { padding: 0 14px 10px; }
svg { display: block; width: 100%; height: 100%; background: var(--page); }
svg path { fill: none; stroke: var(--c); vector-effect: non-scaling-stroke; }
svg .grid { stroke: var(--line); }
svg .dots { stroke-width: 3px; stroke-linecap: round; stroke-opacity: 0.45; }
svg .halo { stroke: var(--card); stroke-width: 6px; }
svg .trend { stroke-width: 3px; }
svg .mean { stroke-width: 1.5px; }
svg .limit { stroke: var(--ink); stroke-width: 1.5px; stroke-dasharray: 7 5; }
svg .bars { fill: var(--c); fill-opacity: 0.25; stroke-width: 1.5px; }
svg .mark { stroke-width: 1.5px; }
.plane i { position: absolute; font: 12px/16px system-ui, sans-serif; color: var(--soft); white-space: nowrap;
  font-variant-numeric: tabular-nums; }
.plane .y { right: 100%; margin: -8px 6px 0 0; max-width: 42px; overflow: hidden; text-overflow: ellipsis; }
.plane .x { top: 100%; margin-top: 3px; transform: translateX(-50%); }
.legend span { white-space: nowrap; }
.legend .trend i { height: 4px; background: var(--ink); }
.legend .mean i { height: 1.5px; background: var(--ink); margin-bottom: 4px; }
.legend .limit i { height: 0; background: none; border-top: 1.5px dashed var(--ink); margin-bottom: 4px; }
.cards { display: grid; gap: 8px; grid-template-columns: repeat(auto-fill, minmax(230px, 1fr));
  max-height: 640px; overflow-y: auto; }
.card { display: block; padding: 8px; border: 1px solid var(--line); border-left: 5px solid var(--c);
  border-radius: 4px; color: var(--ink); text-decoration: none; overflow-wrap: anywhere; }
a.card:hover { background: var(--page); }
.card img { display: block; width: 100%; margin-bottom: 6px; }
.card b, .card small, .card span { display: block; }
.card small, .card .verdict { color: var(--soft); }
.wide { overflow-x: auto; }
#all th, #all td { white-space: nowrap; padding-left: 10px; }
#all .text { text-align: left; }
#all a { color: inherit; }
thead button { padding: 0 4px; }
[aria-sort=ascending] button::after { content: " \25b4"; } [aria-sort=descending] button::after { content: " \25be"; }
[type=search] { font: inherit; padding: 3px 8px; width: min(100%, 340px); color: var(--ink);
  background: var(--page); border: 1px solid var(--line); border-radius: 4px; }
output { color: var(--soft); }
@media print { .cards { max-height: none; } button, [type=search] { display: none; } th button { display: inline; } }
)css";

} // namespace tools
