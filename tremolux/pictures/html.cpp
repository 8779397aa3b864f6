#include "tremolux/pictures/html.h"

namespace tremolux {
namespace {

constexpr const char *kColours =
    R"(:root { color-scheme: light dark; --ground: #f4f4f2; --panel: #ffffff; --ink: #22252a; --soft: #5f6670; --line: #d5d8dc;
  --field: #f0f1f3; --accent: #c44f00; --off: #767c84; --good: #1c6b45; }
@media (prefers-color-scheme: dark) { :root { --ground: #1b1d20; --panel: #26292e; --ink: #e8eaed; --soft: #a5acb5;
  --line: #3b4047; --field: #1f2226; --accent: #ff9a52; --off: #8b929b; --good: #6fcf9f; } }
)";

}  // namespace

std::string EscapedHtml(const std::string &text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string HtmlHead(const std::string &title, const char *style) {
    return "<!doctype html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
           EscapedHtml(title) + "</title>\n<style>\n" + kColours + style + "</style>\n";
}

}  // namespace tremolux
