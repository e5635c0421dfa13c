#include "base/Html.h"

namespace tessa {

std::string HtmlEscaped(std::string_view utf8) {
    std::string html;
    for (const char each : utf8) {
        switch (each) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        case '\'':
            html += "&#39;";
            break;
        default:
            html += each;
        }
    }
    return html;
}

} // namespace tessa
