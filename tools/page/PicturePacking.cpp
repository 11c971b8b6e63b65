#include "PicturePacking.h"

#include "SvgWriter.h"

#include <array>
#include <cstddef>

namespace Page {

namespace {

/// Of several phrases that fit, the first is taken. None contains "|" or "~", and none begins
/// otherwise than with a quotation mark or "<": elsewhere none is looked for.
constexpr std::array<std::string_view, 36> Phrases{
    "<g data-component=\"",
    "<g data-constraint=\"",
    "<g data-alignment=\"",
    "<g data-constituent=\"",
    "</g>\n",
    "<text x=\"",
    "</text>",
    "<rect x=\"",
    "<path d=\"M",
    "\"/>",
    "\">",
    "\" y=\"",
    "\" width=\"",
    "\" height=\"",
    "\" rx=\"3\"/>",
    "\" rx=\"14\"/>",
    "\" rx=\"2\"/>",
    "\" rx=\"9\" stroke-width=\"0.7\"/>",
    "\" rx=\"",
    "\" stroke-dasharray=\"5 4\"/>",
    "\" data-line=\"",
    "\" font-size=\"16\" text-anchor=\"middle\" fill=\"currentColor\" stroke=\"none\">",
    "\" font-size=\"11\" text-anchor=\"middle\" fill=\"currentColor\" stroke=\"none\">",
    "\" font-size=\"12\" text-anchor=\"middle\" fill=\"currentColor\" stroke=\"none\">",
    "\" font-size=\"12\" fill=\"currentColor\" stroke=\"none\">",
    "\" font-size=\"13\" fill=\"currentColor\" stroke=\"none\">",
    "\" font-size=\"16\" text-anchor=\"middle\" font-style=\"italic\" fill=\"currentColor\" "
    "stroke=\"none\">",
    "\" class=\"c",
    "\" stroke=\"currentColor\">",
    "<title>",
    "</title>",
    "<title id=\"",
    "</desc>\n",
    "<desc id=\"",
    "\" role=\"img\" aria-labelledby=\"",
    "\" font-family=\"sans-serif\" fill=\"none\" stroke=\"currentColor\" stroke-width=\"1.3\">",
};
constexpr char FirstLetter = 'A';

/// Looks at the ends first: many phrases begin alike, and few end where another one would.
bool BeginsWith(std::string_view Text, std::string_view Phrase) {
  return Phrase.size() <= Text.size() && Text[Phrase.size() - 1] == Phrase.back() &&
         Text[1] == Phrase[1] && Text.substr(0, Phrase.size()) == Phrase;
}

/// The first phrase that a text begins with; the number of phrases where there is none.
std::size_t PhraseAt(std::string_view Text) {
  std::size_t Found = 0;
  while (Found < Phrases.size() && !BeginsWith(Text, Phrases[Found])) {
    ++Found;
  }
  return Found;
}

}  // namespace

void AppendPhrases(std::string& TextReturn) {
  for (std::size_t At = 0; At < Phrases.size(); ++At) {
    TextReturn.append(At == 0 ? "" : "|").append(Phrases[At]);
  }
}

void AppendPacked(std::string_view Svg, std::string& TextReturn) {
  while (!Svg.empty()) {
    const std::size_t Plain = Svg.find_first_of("\"<~");
    TextReturn += Svg.substr(0, Plain);
    if (Plain == std::string_view::npos) {
      return;
    }
    Svg.remove_prefix(Plain);
    const std::size_t Phrase = PhraseAt(Svg);
    if (Phrase < Phrases.size()) {
      TextReturn += '~';
      TextReturn += static_cast<char>(FirstLetter + static_cast<int>(Phrase));
      Svg.remove_prefix(Phrases[Phrase].size());
      continue;
    }
    TextReturn.append(Svg.front() == '~' ? "~~" : Svg.substr(0, 1));
    Svg.remove_prefix(1);
  }
}

void AppendPackedAttribute(std::string_view Svg, std::string& TextReturn) {
  std::string Packed;
  AppendPacked(Svg, Packed);
  Picture::AppendEscaped(Packed, TextReturn);
}

}  // namespace Page
