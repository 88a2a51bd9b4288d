#include "client/report/style.h"

namespace tallyra::client {

const std::string_view report_style = R"(
:root { color-scheme: light dark; --page: #fbfbf9; --card: #ffffff; --ink: #1d2329; --soft: #5d6772;
  --rule: #dfe3e6; --s0: #2f6f9f; --s1: #d98032; --s2: #4f9a6b; --s3: #8a64ae; --s4: #b9556a; --s5: #84725c;
  --up: #3c8c5f; --down: #c0524a; }
@media (prefers-color-scheme: dark) { :root { --page: #14181c; --card: #1c2127; --ink: #e7eaed;
  --soft: #9ba6b0; --rule: #323a42; --s0: #6aaee0; --s1: #eba562; --s2: #7cc79a; --s3: #b898d8; --s4: #e38b9d;
  --s5: #bba88f; --up: #74c598; --down: #ee8b82; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--page); color: var(--ink);
  font: 15px/1.5 system-ui, "Segoe UI", "Noto Sans", "Noto Sans CJK SC", "Microsoft YaHei", sans-serif; }
main { max-width: 960px; margin: 0 auto; padding: 32px 20px 48px; }
h1 { font-size: 26px; line-height: 1.2; margin: 0 0 6px; }
h2 { font-size: 17px; margin: 0 0 12px; }
p { margin: 0 0 12px; color: var(--soft); }
.state { display: inline-block; padding: 0 10px; border-radius: 11px; font-size: 13px; line-height: 22px;
  border: 1px solid currentColor; vertical-align: 4px; margin-left: 8px; font-weight: 400; }
.state.good { color: var(--up); }
.state.open { color: var(--down); }
.tiles { display: grid; grid-template-columns: repeat(auto-fit, minmax(170px, 1fr)); gap: 12px;
  margin: 20px 0; }
section, .tile { background: var(--card); border: 1px solid var(--rule); border-radius: 10px;
  padding: 14px 18px; }
section { margin-bottom: 16px; padding: 18px; }
.tile span { display: block; color: var(--soft); font-size: 13px; }
.tile b { font-size: 22px; font-weight: 600; font-variant-numeric: tabular-nums; }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; width: 100%; font-size: 14px; }
th, td { text-align: left; padding: 5px 10px; border-bottom: 1px solid var(--rule); vertical-align: top; }
th { color: var(--soft); font-weight: 500; }
tr:last-child td { border-bottom: 0; }
.number { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
.sum td { font-weight: 600; }
svg { display: block; width: 100%; height: auto; }
svg + .scroll { margin-top: 14px; }
svg text { font-size: 12.5px; fill: var(--ink); }
svg .label, svg .figure { text-anchor: end; }
svg .figure { font-variant-numeric: tabular-nums; }
svg .axis { stroke: var(--soft); stroke-width: 1; }
.s0 { fill: var(--s0); color: var(--s0); } .s1 { fill: var(--s1); color: var(--s1); }
.s2 { fill: var(--s2); color: var(--s2); } .s3 { fill: var(--s3); color: var(--s3); }
.s4 { fill: var(--s4); color: var(--s4); } .s5 { fill: var(--s5); color: var(--s5); }
.up { fill: var(--up); } .down { fill: var(--down); }
.key { font-size: 13px; margin: 0 0 10px; color: var(--soft); }
.key i { display: inline-block; width: 11px; height: 11px; border-radius: 2px; background: currentColor;
  margin: 0 6px 0 0; }
.key span { margin-right: 18px; white-space: nowrap; }
@media print { :root { color-scheme: light; --page: #fff; --card: #fff; --ink: #000; --soft: #444;
  --rule: #bbb; --s0: #2f6f9f; --s1: #d98032; --s2: #4f9a6b; --s3: #8a64ae; --s4: #b9556a; --s5: #84725c;
  --up: #3c8c5f; --down: #c0524a; }
  body { font-size: 11px; print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  main { max-width: none; padding: 0; } table { font-size: 10.5px; }
  section, .tile { border-radius: 0; padding: 8px 10px; } section { border-width: 1px 0 0; }
  h2, tr, svg, .tile { break-inside: avoid; } h2 { break-after: avoid; } thead { display: table-header-group; }
  .scroll { overflow: visible; } }
)";

}  // namespace tallyra::client
