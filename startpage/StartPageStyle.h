#pragma once
#include <string_view>

namespace tessa {

/// How the home page looks.
inline constexpr std::string_view kStartPageStyle = R"css(
:root { --back: #f3f6fa; --face: #ffffff; --line: #d5dde8; --text: #1c2735; --soft: #5b6b80; --mark: #1d63c0;
  --shade: 0 1px 2px #1c273518, 0 4px 14px #1c273512; color-scheme: light; }
.dark { --back: #161b22; --face: #212934; --line: #374354; --text: #e6ebf2; --soft: #9aa9bd; --mark: #7db8ff;
  --shade: 0 1px 2px #0008, 0 4px 14px #0006; color-scheme: dark; }
* { box-sizing: border-box; }
body { margin: 0; background: var(--back); color: var(--text); font: 15px/1.45 system-ui, sans-serif; }
main { max-width: 1080px; margin: 0 auto; padding: 8vh 24px 48px; }
header { text-align: center; }
header svg { width: 64px; height: 64px; vertical-align: middle; margin-right: 14px; }
h1 { display: inline-block; vertical-align: middle; font-weight: 300; font-size: 44px; margin: 0; }
form { display: flex; max-width: 620px; margin: 28px auto 44px; background: var(--face); box-shadow: var(--shade);
  border: 1px solid var(--line); border-radius: 26px; }
form:focus-within { border-color: var(--mark); box-shadow: 0 0 0 3px color-mix(in srgb, var(--mark) 25%, transparent); }
input { flex: 1; min-width: 0; font: inherit; font-size: 17px; color: inherit; background: none; border: 0; outline: 0;
  padding: 13px 8px 13px 24px; }
button { font: inherit; font-weight: 600; color: var(--mark); background: none; border: 0; border-radius: 26px;
  padding: 0 24px; cursor: pointer; }
.ask { max-width: 620px; margin: 0 auto 36px; padding: 6px 24px 18px; border: 1px solid var(--line); border-radius: 14px;
  background: var(--face); text-align: center; }
.answer { display: inline-block; padding: 6px 18px; margin: 0 4px; border: 1px solid var(--mark); color: var(--mark);
  font-weight: 600; }
.answer:hover { box-shadow: var(--shade); }
h2 { font-size: 14px; font-weight: 600; color: var(--soft); margin: 32px 0 12px; }
.cards { display: grid; grid-template-columns: repeat(auto-fill, minmax(230px, 1fr)); gap: 16px; }
a { color: inherit; text-decoration: none; border-radius: 14px; }
a:focus-visible, button:focus-visible { outline: 3px solid var(--mark); outline-offset: 2px; }
.card { display: block; background: var(--face); border: 1px solid var(--line); padding: 16px 18px 14px;
  box-shadow: var(--shade); min-height: 172px; }
.card:hover { border-color: var(--mark); }
.card b { display: block; font-size: 17px; font-weight: 600; overflow: hidden; text-overflow: ellipsis;
  white-space: nowrap; }
.card small { display: block; color: var(--soft); margin: 1px 0 10px; font-size: 13px; }
.card .news { color: var(--mark); margin-top: -6px; }
.site { display: flex; align-items: center; gap: 9px; margin-top: 5px; font-size: 13px; color: var(--soft); }
.site span, .link span { overflow: hidden; text-overflow: ellipsis; white-space: nowrap; }
i { flex: none; width: 19px; height: 19px; border-radius: 5px; font: 600 11px/19px system-ui, sans-serif;
  text-align: center; color: #fff; text-transform: uppercase; }
.t0 { background: #2f7fd6; } .t1 { background: #b4540a; } .t2 { background: #2b8a57; } .t3 { background: #8b5cc2; }
.t4 { background: #c0392b; } .t5 { background: #16808a; } .t6 { background: #a8487c; } .t7 { background: #5d6d7e; }
.links { display: grid; grid-template-columns: repeat(auto-fill, minmax(230px, 1fr)); gap: 4px 16px; }
.link { display: flex; align-items: center; gap: 9px; padding: 6px 8px; border-radius: 8px; }
.link:hover { background: var(--face); }
.hint { color: var(--soft); background: var(--face); border: 1px dashed var(--line); border-radius: 14px;
  padding: 20px 24px; }
.more { color: var(--soft); font-size: 13px; }
footer { color: var(--soft); font-size: 13px; margin-top: 44px; }
)css";

} // namespace tessa
