#pragma once
#include <string>
#include <string_view>

namespace tessa {

/// One answer of the server: what goes over the wire after the status line.
struct Answer {
    int status = 404;
    std::string_view type = "text/plain";
    std::string body{};
    std::string_view kept = "max-age=3600"; ///< how long a browser may keep it
};

/// What the server gives for a path. A page /page/<n> is about 60 kB of text with a table, its own style and script,
/// and names a style sheet, a script, four pictures and an icon, all its own; when it has loaded it asks for
/// /done?n=<n>. /animated/<n> is the same page with a box that moves for ever. Other paths are answered with 404.
Answer AnswerFor(std::string_view path);

} // namespace tessa
