#include "Pages.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace tessa {

namespace {

constexpr std::size_t kPageBytes = 60'000;
constexpr int kPictureSide = 40; // pixels; 3 bytes each make a few kB
constexpr int kIconSide = 16;    // pixels

constexpr std::string_view kWords[] = {"river", "paper", "north",  "garden", "signal", "copper", "winter", "letter",
                                       "stone", "music", "harbor", "window", "silver", "valley", "engine", "forest"};

// The same words for the same page in every run, other words for another page.
class Words {
public:
    explicit Words(std::uint32_t start) : m_state(start * 2654435761U + 1) {}

    std::uint32_t Number() {
        m_state = m_state * 1664525U + 1013904223U;
        return m_state >> 8;
    }
    std::string Sentence(int words) {
        std::string text;
        for (int i = 0; i < words; ++i) text.append(i ? " " : "").append(kWords[Number() % std::size(kWords)]);
        return text + ". ";
    }

private:
    std::uint32_t m_state;
};

void AppendLittle(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes.push_back(static_cast<char>(value >> (8 * i)));
}

// An uncompressed 24-bit bitmap; both sides are multiples of four, so that no line needs padding.
std::string Bitmap(int side, std::uint32_t start) {
    constexpr std::uint32_t kHeader = 54;
    const auto size = static_cast<std::uint32_t>(side * side * 3);
    std::string bytes = "BM";
    for (const std::uint32_t field : {kHeader + size, 0U, kHeader, 40U}) AppendLittle(bytes, field, 4);
    AppendLittle(bytes, static_cast<std::uint32_t>(side), 4);
    AppendLittle(bytes, static_cast<std::uint32_t>(side), 4);
    AppendLittle(bytes, 1, 2);
    AppendLittle(bytes, 24, 2);
    for (const std::uint32_t field : {0U, size, 2835U, 2835U, 0U, 0U}) AppendLittle(bytes, field, 4);
    Words colours(start);
    for (std::uint32_t i = 0; i < size; ++i) bytes.push_back(static_cast<char>(colours.Number()));
    return bytes;
}

std::string Head(const std::string& n) {
    return "<!DOCTYPE html><html lang=en><head><meta charset=utf-8><title>Page " + n + " of the bench</title>" +
           "<link rel=icon href=/icon/" + n + ".bmp><link rel=stylesheet href=/style/" + n + ".css>" +
           "<style>body{font:15px/1.5 sans-serif;margin:0 auto;max-width:60em}h2{border-bottom:1px solid #ccd}"
           "td{padding:2px 8px}tr:nth-child(even){background:#eef}.note{float:right;width:14em;background:#ffd}"
           "</style><script src=/script/" +
           n + ".js></script></head><body><h1>Page " + n + "</h1>";
}

std::string Table(Words& words) {
    std::string html = "<table><tr><th>Name<th>Place<th>Count</tr>";
    for (int row = 0; row < 60; ++row) {
        html += "<tr><td>" + words.Sentence(2) + "<td>" + words.Sentence(3) + "<td>" +
                std::to_string(words.Number() % 10'000) + "</tr>";
    }
    return html + "</table>";
}

// A box that goes to and fro over a gradient. It is fixed, so that it is on the screen however the page is scrolled.
std::string Moving() {
    return "<style>.band{position:fixed;left:0;right:0;bottom:0;height:160px;"
           "background:linear-gradient(90deg,#36c,#c63,#3a6)}.box{width:120px;height:120px;margin:20px;"
           "background:#fff;animation:go 2s linear infinite alternate}"
           "@keyframes go{to{transform:translateX(calc(100vw - 180px)) rotate(180deg)}}</style>"
           "<div class=band><div class=box></div></div>";
}

std::string Tail(const std::string& n) {
    return "<script>document.title='Page " + n + ": '+document.querySelectorAll('p').length+' paragraphs';" +
           "addEventListener('load',function(){fetch('/done?n=" + n + "')});</script></body></html>";
}

std::string Page(int number, const std::string& first = {}) {
    const std::string n = std::to_string(number);
    Words words(static_cast<std::uint32_t>(number));
    std::string html = Head(n) + first;
    for (int i = 1; i <= 4; ++i) html += "<img alt='' src=/picture/" + n + "-" + std::to_string(i) + ".bmp>";
    html += Table(words);
    for (int section = 1; html.size() < kPageBytes; ++section) {
        html += "<h2>" + words.Sentence(3) + "</h2><p class=note>" + words.Sentence(8) + "</p>";
        for (int i = 0; i < 4; ++i) {
            html += "<p>" + words.Sentence(20) + "<a href=/page/" + n + "#s" + std::to_string(section) + ">" +
                    words.Sentence(2) + "</a><b>" + words.Sentence(4) + "</b>" + words.Sentence(24) + "</p>";
        }
    }
    return html + Tail(n);
}

std::string Style(int number) {
    Words words(static_cast<std::uint32_t>(number));
    std::string css = "h1{color:#" + std::to_string(100 + number % 800) + "}img{margin:4px}";
    for (int i = 0; i < 120; ++i) {
        css += ".c" + std::to_string(i) + "{margin:" + std::to_string(words.Number() % 9) + "px;color:#" +
               std::to_string(100 + words.Number() % 800) + "}";
    }
    return css;
}

// About as much work as a small page gives its script: a table sorted by its last column.
std::string Script() {
    return "document.addEventListener('DOMContentLoaded',function(){var body=document.querySelector('tbody');"
           "var rows=Array.from(body.rows).slice(1);rows.sort(function(a,b){"
           "return a.cells[2].textContent-b.cells[2].textContent});"
           "rows.forEach(function(row,i){row.className='c'+i;body.appendChild(row)})});";
}

int NumberAfter(std::string_view path, std::string_view prefix) {
    int number = -1;
    if (path.starts_with(prefix)) std::from_chars(path.data() + prefix.size(), path.data() + path.size(), number);
    return number;
}

} // namespace

Answer AnswerFor(std::string_view path) {
    if (const int n = NumberAfter(path, "/page/"); n >= 0) return {200, "text/html; charset=utf-8", Page(n)};
    if (const int n = NumberAfter(path, "/animated/"); n >= 0) {
        return {200, "text/html; charset=utf-8", Page(n, Moving())};
    }
    if (const int n = NumberAfter(path, "/style/"); n >= 0) return {200, "text/css", Style(n)};
    if (NumberAfter(path, "/script/") >= 0) return {200, "text/javascript", Script()};
    if (const int n = NumberAfter(path, "/icon/"); n >= 0) {
        return {200, "image/bmp", Bitmap(kIconSide, static_cast<std::uint32_t>(n))};
    }
    if (NumberAfter(path, "/picture/") >= 0) {
        return {200, "image/bmp",
                Bitmap(kPictureSide, static_cast<std::uint32_t>(std::hash<std::string_view>()(path)))};
    }
    // Asked for each time, however often a page is loaded.
    if (path.starts_with("/done?")) return {200, "text/plain", "ok", "no-store"};
    return {};
}

} // namespace tessa
