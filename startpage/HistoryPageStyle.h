#pragma once
#include <string_view>

namespace tessa {

/// How the page of the history looks, beside what it has of the home page.
inline constexpr std::string_view kHistoryPageStyle = R"css(
main { max-width: 860px; padding-top: 28px; }
header svg { width: 40px; height: 40px; }
h1 { font-size: 30px; }
form { margin: 18px auto 12px; max-width: none; }
.tools { position: sticky; top: 0; z-index: 1; display: flex; flex-wrap: wrap; gap: 8px; align-items: center;
  background: var(--back); padding: 8px 0; }
.tools p { flex: 1; margin: 0; color: var(--soft); font-size: 13px; }
.actions { display: flex; gap: 8px; }
.tools button, .tools select, .chip, .quiet, #more { font: inherit; font-size: 13px; font-weight: 400; color: var(--text);
  background: var(--face); border: 1px solid var(--line); border-radius: 14px; padding: 4px 14px; }
.tools button:disabled { color: var(--soft); opacity: .6; cursor: default; }
.tools button:not(:disabled):hover, .quiet:hover, #more:hover { border-color: var(--mark); }
select:focus-visible, input[type=checkbox]:focus-visible { outline: 3px solid var(--mark); outline-offset: 2px; }
[hidden] { display: none !important; }
#list h2 { display: flex; align-items: center; gap: 12px; margin: 22px 0 8px; }
#list h2 .quiet { opacity: 0; }
#list h2:hover .quiet, .quiet:focus-visible { opacity: 1; }
ol { list-style: none; margin: 0; padding: 0; background: var(--face); border: 1px solid var(--line);
  border-radius: 14px; box-shadow: var(--shade); }
li { display: grid; grid-template-columns: auto auto 1fr auto; gap: 2px 10px; align-items: center;
  padding: 8px 14px; border-top: 1px solid var(--line); }
li:first-child { border-top: 0; }
li:focus-within { background: color-mix(in srgb, var(--mark) 8%, transparent); }
li input { flex: none; width: 16px; height: 16px; margin: 0; padding: 0; accent-color: var(--mark); }
li img { width: 19px; height: 19px; }
li a { min-width: 0; overflow: hidden; text-overflow: ellipsis; white-space: nowrap; border-radius: 4px; }
li a b { font-weight: 500; }
li time { color: var(--soft); font-size: 13px; white-space: nowrap; }
li .about { grid-column: 3 / -1; color: var(--soft); font-size: 13px; min-width: 0; overflow: hidden;
  text-overflow: ellipsis; white-space: nowrap; }
li .about button { font: inherit; color: inherit; padding: 0; border-radius: 4px; text-decoration: underline;
  text-decoration-color: var(--line); }
li p { grid-column: 3 / -1; margin: 0; font-size: 13px; color: var(--soft); overflow-wrap: anywhere; }
mark { background: #ffd75e; color: #1c2735; border-radius: 2px; }
.dark mark { background: #d9a520; }
.new { color: var(--mark); }
#more { display: block; margin: 18px auto; }
)css";

} // namespace tessa
