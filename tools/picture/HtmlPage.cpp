#include "HtmlPage.h"

#include "Characters.h"
#include "SvgWriter.h"

namespace Picture {

namespace {

constexpr std::string_view Style =
    ":root{color-scheme:light dark}"
    "body{margin:2rem auto;max-width:72rem;padding:0 1rem;font-family:sans-serif;"
    "background:Canvas;color:CanvasText}"
    "h1{font-size:1.4rem}"
    "h2{font-size:1rem;margin:2rem 0 .5rem}"
    "figure{margin:0;overflow-x:auto}"
    "@media print{figure{break-inside:avoid}}";

}  // namespace

void BeginPage(std::string_view Title, std::string& TextReturn) {
  TextReturn +=
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n<title>";
  AppendEscaped(ShownText(Title), TextReturn);
  TextReturn.append("</title>\n<style>")
      .append(Style)
      .append("</style>\n</head>\n<body>\n<main>\n<h1>");
  AppendEscaped(ShownText(Title), TextReturn);
  TextReturn += "</h1>\n";
}

void AppendHeading(std::string_view Words, std::string& TextReturn) {
  TextReturn += "<h2>";
  AppendEscaped(ShownText(Words), TextReturn);
  TextReturn += "</h2>\n";
}

void AppendParagraph(std::string_view Words, std::string& TextReturn) {
  TextReturn += "<p>";
  AppendEscaped(ShownText(Words), TextReturn);
  TextReturn += "</p>\n";
}

void AppendPicture(std::string_view Svg, std::string& TextReturn) {
  // What scrolls can be reached by the keyboard.
  TextReturn.append("<figure tabindex=\"0\">\n").append(Svg).append("</figure>\n");
}

void AppendFigure(std::string_view Place, std::string_view Svg, std::string& TextReturn) {
  AppendHeading(Place, TextReturn);
  AppendPicture(Svg, TextReturn);
}

void AppendDetails(std::string_view Summary, const std::vector<std::string>& vsEntries,
                   std::string& TextReturn) {
  TextReturn += "<details><summary>";
  AppendEscaped(ShownText(Summary), TextReturn);
  TextReturn += "</summary>\n<ol>\n";
  for (const std::string& sEntry : vsEntries) {
    TextReturn += "<li>";
    AppendEscaped(ShownText(sEntry), TextReturn);
    TextReturn += "</li>\n";
  }
  TextReturn += "</ol>\n</details>\n";
}

void EndPage(std::string& TextReturn) {
  TextReturn += "</main>\n</body>\n</html>\n";
}

}  // namespace Picture
